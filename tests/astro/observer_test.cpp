#include <gtest/gtest.h>

#include <cmath>

#include "core/astro/earth_model.h"
#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/sidereal_time.h"
#include "core/astro/sub_satellite_point.h"

namespace norvane {
namespace {

constexpr double kDeg = kPi / 180.0;
constexpr double kJd = 2458000.25;

TEST(ObserverPosVel, EquatorPointTurnsWithTheEarth) {
  Geodetic obs{0.0, 0.0, 0.5, 0.0};
  StateVector pos, vel;
  ObserverPosVel(kJd, obs, pos, vel);
  EXPECT_DOUBLE_EQ(obs.theta, GreenwichSiderealTime(kJd));
  EXPECT_NEAR(pos.w, EarthModel::kEquatorialRadius + 0.5, 1e-9);
  EXPECT_DOUBLE_EQ(pos.z, 0.0);
  EXPECT_NEAR(vel.w, EarthModel::kRotationRate * pos.w, 1e-12);  // about 0.465 km/s
  EXPECT_NEAR(pos.x * vel.x + pos.y * vel.y, 0.0, 1e-9);
}

TEST(ObserverPosition, AgreesWithObserverPosVelOnTheSurface) {
  for (double lat : {-60.0, -10.0, 35.0, 89.0}) {
    Geodetic obs{lat * kDeg, -75.0 * kDeg, 0.0, 0.0};
    StateVector a, b, vel;
    ObserverPosVel(kJd, obs, a, vel);
    ObserverPosition(kJd, obs, b);
    EXPECT_NEAR(a.x, b.x, 1e-6) << lat;
    EXPECT_NEAR(a.y, b.y, 1e-6) << lat;
    EXPECT_NEAR(a.z, b.z, 1e-6) << lat;
  }
}

// The geodetic point below a place at altitude, and the iterations it took.
int pointBelow(Geodetic place, Geodetic& point) {
  StateVector pos, vel;
  ObserverPosVel(kJd, place, pos, vel);
  return SubSatellitePoint(kJd, pos, point);
}

TEST(SubSatellitePoint, RecoversThePointBelowWithWestAndSouthAsTheTrackerShowsThem) {
  Geodetic point;
  const int passes = pointBelow({40.0 * kDeg, 200.0 * kDeg, 500.0, 0.0}, point);
  EXPECT_GE(passes, 2);
  EXPECT_LE(passes, 10);
  EXPECT_NEAR(point.lat, 40.0 * kDeg, 1e-6);
  EXPECT_NEAR(point.lon, 200.0 * kDeg, 1e-9);
  EXPECT_NEAR(point.alt, 500.0, 0.05);

  pointBelow({-30.0 * kDeg, -10.0 * kDeg, 800.0, 0.0}, point);
  EXPECT_NEAR(point.lon, 350.0 * kDeg, 1e-9);  // not -10
  EXPECT_NEAR(point.lat, -30.0 * kDeg, 1e-6);  // not 330

  const StateVector onEquator{7000.0, 0.0, 0.0, 7000.0};  // AcTan(0, r) is 2pi
  SubSatellitePoint(kJd, onEquator, point);
  EXPECT_NEAR(point.lat, 0.0, 1e-12);
  EXPECT_NEAR(point.alt, 7000.0 - EarthModel::kEquatorialRadius, 1e-9);
}

}  // namespace
}  // namespace norvane
