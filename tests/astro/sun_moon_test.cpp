#include <gtest/gtest.h>

#include <cmath>

#include "core/astro/moon.h"
#include "core/astro/numeric.h"
#include "core/astro/sun.h"
#include "core/astro/sun_moon_almanac.h"

namespace norvane {
namespace {

constexpr double kDeg = kPi / 180.0;

TEST(Sun, AtJ2000) {
  EXPECT_DOUBLE_EQ(Obliquity(2451545.0), 84381.406173 * 4.84813681109536e-6);
  StateVector sun;
  SunPosition(2451545.0, sun);
  EXPECT_NEAR(sun.w, 1.4710e8, 1e4);
  EXPECT_NEAR(std::sqrt(sun.x * sun.x + sun.y * sun.y + sun.z * sun.z), sun.w, 1e-6);
  const double eps = Obliquity(2451545.0);
  const double lambda = std::atan2(sun.y / std::cos(eps), sun.x) + kTwoPi;
  EXPECT_NEAR(lambda, 4.89, 0.01);  // about 280 deg
  EXPECT_NEAR(sun.z * std::cos(eps), sun.y * std::sin(eps), 1e-3);  // in the ecliptic
}

TEST(Moon, ParallaxLowersTheAltitude) {
  EXPECT_DOUBLE_EQ(MoonParallaxAltitude(0.0, 1.0), -0.0166);
  EXPECT_NEAR(MoonParallaxAltitude(kPi / 2.0, 1.0), kPi / 2.0, 1e-15);
  EXPECT_DOUBLE_EQ(MoonParallaxAltitude(0.0, 0.9), -0.0166 / 0.9);
}

TEST(Moon, SubPointLongitudeIsNotReduced) {
  const Geodetic observer{50.0 * kDeg, 10.0 * kDeg, 0.0, 0.0};
  int negative = 0;
  for (int i = 0; i < 40; ++i) {
    const double jd = 2451545.0 + 0.73 * i;
    MoonHorizontal h;
    MoonSubPoint p;
    MoonPosition(jd - kMoonEpoch, observer, h, p);
    EXPECT_EQ(p.distance, 384403.0);
    EXPECT_GT(p.lon, -kTwoPi);
    EXPECT_LT(p.lon, kTwoPi);
    EXPECT_LE(std::fabs(p.lat), 29.0 * kDeg);
    EXPECT_GE(h.azimuth, 0.0);
    EXPECT_LT(h.azimuth, kTwoPi);
    EXPECT_NEAR(h.distance, 1.0, 0.07);
    if (p.lon < 0.0) ++negative;
  }
  EXPECT_GT(negative, 0);
}

struct Almanac {
  double phase, age, moonDistance, moonDiameter, sunDistance, sunDiameter;
  explicit Almanac(double jd) {
    EXPECT_EQ(SunMoonAlmanac(jd, phase, age, moonDistance, moonDiameter, sunDistance, sunDiameter), 1.0);
  }
};

TEST(SunMoonAlmanac, PhaseAndAgeFollowTheLunation) {
  const Almanac newMoon(2451550.26);   // 2000-01-06 18:14 UTC
  const Almanac fullMoon(2451564.69);  // 2000-01-21 04:40 UTC
  const Almanac firstQuarter(2451558.07);  // 2000-01-14 13:34 UTC
  EXPECT_LT(newMoon.phase, 0.01);
  EXPECT_GT(fullMoon.phase, 0.99);
  EXPECT_NEAR(firstQuarter.phase, 0.5, 0.02);
  EXPECT_NEAR(std::cos(newMoon.age), 1.0, 0.01);  // an angle near 0 or 2pi, not days
  EXPECT_NEAR(fullMoon.age, kPi, 0.1);
  EXPECT_NEAR(firstQuarter.age, kPi / 2.0, 0.03);
  for (const Almanac* a : {&newMoon, &fullMoon, &firstQuarter}) {
    EXPECT_GE(a->age, 0.0);
    EXPECT_LT(a->age, kTwoPi);
    EXPECT_NEAR(a->moonDiameter, 0.5181 * 384401.0 / a->moonDistance, 1e-12);
    EXPECT_NEAR(a->sunDistance, 1.471e8, 1e6);  // January: near perihelion
    EXPECT_NEAR(a->sunDiameter, 0.542, 0.002);
  }
}

}  // namespace
}  // namespace norvane
