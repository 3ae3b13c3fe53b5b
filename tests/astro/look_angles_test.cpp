#include <gtest/gtest.h>

#include <cmath>

#include "core/astro/look_angles.h"
#include "core/astro/numeric.h"
#include "core/astro/observer.h"

namespace norvane {
namespace {

constexpr double kJd = 2458000.25;

// A body at the given azimuth, elevation (rad) and range (km) from the observer,
// moving with the given speed (km/s) along the line of sight.
struct Scene {
  Geodetic observer{0.7, 2.0, 0.3, 0.0};
  LookAngleCache cache;
  StateVector pos, vel;

  void place(double az, double el, double range, double radialSpeed) {
    StateVector o, ov;
    ObserverPosVel(kJd, observer, o, ov);
    const double sl = std::sin(observer.lat), cl = std::cos(observer.lat);
    const double st = std::sin(observer.theta), ct = std::cos(observer.theta);
    const double up[3] = {cl * ct, cl * st, sl};
    const double north[3] = {-sl * ct, -sl * st, cl};
    const double east[3] = {-st, ct, 0.0};
    double d[3];
    for (int i = 0; i < 3; ++i) {
      d[i] = std::cos(el) * (std::cos(az) * north[i] + std::sin(az) * east[i]) + std::sin(el) * up[i];
    }
    pos = {o.x + range * d[0], o.y + range * d[1], o.z + range * d[2], 0.0};
    vel = {ov.x + radialSpeed * d[0], ov.y + radialSpeed * d[1], ov.z + radialSpeed * d[2], 0.0};
  }
  int look(LookAngles& out, bool keep, bool refraction = false) {
    return LookAnglesOf(kJd, pos, vel, observer, cache, out, keep, refraction);
  }
};

TEST(RefractionCorrection, RadiansThroughoutGiveTheTrackerValues) {
  EXPECT_NEAR(RefractionCorrection(0.0), -0.00014144876, 1e-11);
  EXPECT_NEAR(RefractionCorrection(0.1), 0.00017010906, 1e-11);
  EXPECT_NEAR(RefractionCorrection(0.5), 0.00028523119, 1e-11);
  EXPECT_NEAR(RefractionCorrection(1.5), -0.0000125652, 5e-11);  // stated to ten decimals only
}

TEST(LookAnglesOf, RecoversAzimuthElevationRangeAndRate) {
  Scene s;
  for (double az : {0.3, 1.6, 3.3, 5.9}) {
    s.place(az, 0.4, 1500.0, 2.5);
    LookAngles out;
    ASSERT_EQ(s.look(out, false), 1);
    EXPECT_NEAR(out.azimuth, az, 1e-9);
    EXPECT_NEAR(out.elevation, 0.4, 1e-9);
    EXPECT_NEAR(out.range, 1500.0, 1e-7);
    EXPECT_NEAR(out.rangeRate, 2.5, 1e-9);  // receding
  }
}

TEST(LookAnglesOf, BelowTheHorizonKeepsElevationAndRangeOnly) {
  Scene s;
  s.place(2.0, -0.001, 3000.0, -1.0);
  LookAngles out;
  EXPECT_EQ(s.look(out, false), 0);
  EXPECT_EQ(out.azimuth, 0.0);
  EXPECT_EQ(out.rangeRate, 0.0);
  EXPECT_NEAR(out.elevation, -0.001, 1e-9);
  EXPECT_NEAR(out.range, 3000.0, 1e-7);

  EXPECT_EQ(s.look(out, true), 1);
  EXPECT_NEAR(out.azimuth, 2.0, 1e-9);
  EXPECT_NEAR(out.rangeRate, -1.0, 1e-9);

  // Refraction comes after the horizon test: a body just below stays below.
  EXPECT_EQ(s.look(out, false, true), 0);
  EXPECT_NEAR(out.elevation, -0.001, 1e-9);
  EXPECT_EQ(s.look(out, true, true), 1);
  EXPECT_NEAR(out.elevation, -0.001 + RefractionCorrection(-0.001), 1e-9);
}

TEST(LookAnglesOf, ZenithDoesNotFail) {
  Scene s;
  s.place(0.0, kPi / 2.0, 800.0, 0.0);
  LookAngles out;
  EXPECT_EQ(s.look(out, false), 1);
  EXPECT_NEAR(out.elevation, kPi / 2.0, 1e-6);
}

TEST(LookAnglesOf, CacheIsKeyedOnTimeAlone) {
  Scene s;
  s.place(1.0, 0.5, 2000.0, 0.0);
  LookAngles first, stale, fresh;
  s.look(first, true);
  s.observer.lat = -0.2;  // a new observer at the same time keeps the old trigonometry
  s.look(stale, true);
  LookAngleCache empty;
  LookAnglesOf(kJd, s.pos, s.vel, s.observer, empty, fresh, true, false);
  EXPECT_EQ(s.cache.sinLat, std::sin(0.7));
  EXPECT_GT(std::fabs(stale.elevation - fresh.elevation), 1e-3);
  EXPECT_EQ(s.cache.time, kJd);
}

}  // namespace
}  // namespace norvane
