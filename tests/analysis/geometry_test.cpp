#include <gtest/gtest.h>

#include <cmath>

#include "core/analysis/eclipse.h"
#include "core/analysis/flares.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/satellite_shape.h"
#include "core/astro/numeric.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {

constexpr double kDegree = kPi / 180.0;
constexpr double kAu = 1.496e8;  // km

StateVector vec(double x, double y, double z) {
  StateVector v{x, y, z, 0};
  VecMagnitude(v);
  return v;
}
StateVector unit(const StateVector& a) { return vec(a.x / a.w, a.y / a.w, a.z / a.w); }
StateVector add(const StateVector& a, const StateVector& b, double k = 1.0) {
  return vec(a.x + k * b.x, a.y + k * b.y, a.z + k * b.z);
}
StateVector cross(const StateVector& a, const StateVector& b) {
  return vec(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}

TEST(SatelliteShapeTable, NamedRowsPlaceholdersAndOrder) {
  const auto table = SatelliteShapeTable();
  ASSERT_EQ(table.size(), 1778u);
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (i > 0) {
      EXPECT_LT(table[i - 1].catnr, table[i].catnr) << i;
    }
    // Rows without sizes are the unknown-shape placeholder, never a sphere of radius 0.
    EXPECT_GE(table[i].length, 0.2) << table[i].catnr;
  }
  const SatelliteShape first = table[0];
  EXPECT_EQ(first.catnr, 5);
  EXPECT_EQ(first.standardMagnitude, 10.3);
  EXPECT_EQ(first.radarCrossSection, 0.12);
  EXPECT_EQ(table[2].catnr, 12);
  EXPECT_EQ(table[2].width, 0.5);
  EXPECT_EQ(table[2].standardMagnitude, 9.1);
  EXPECT_EQ(table[table.size() - 3].catnr, 90036);
  EXPECT_EQ(table.back().catnr, 90038);
  EXPECT_EQ(table.back().length, 4.0);
  EXPECT_EQ(StandardMagnitude(163), 5.9);
  EXPECT_EQ(StandardMagnitude(5), 10.3);
  EXPECT_EQ(StandardMagnitude(4), 100.0);
}

// Satellite 7000 km from the centre, angle phi off the anti-Sun direction.
TEST(SatEclipsed, UmbraIsEclipsedAndPenumbraIsLit) {
  const StateVector sun = vec(kAu, 0, 0);
  const double earth = ArcSin(6378.137 / 7000.0);
  const double sunRadius = ArcSin(696000.0 / (kAu + 7000.0));
  double depth = 0;
  const double inside = earth - sunRadius - 0.001;
  EXPECT_EQ(SatEclipsed(vec(-7000 * std::cos(inside), 7000 * std::sin(inside), 0), sun, depth), 1);
  EXPECT_NEAR(depth, 0.001, 1e-6);
  const double penumbra = earth - sunRadius + 0.001;
  EXPECT_EQ(SatEclipsed(vec(-7000 * std::cos(penumbra), 7000 * std::sin(penumbra), 0), sun, depth), 0);
  EXPECT_NEAR(depth, -0.001, 1e-6);
  // On the day side the depth is reported too.
  EXPECT_EQ(SatEclipsed(vec(7000, 0, 0), sun, depth), 0);
  EXPECT_NEAR(depth, earth - sunRadius - kPi, 1e-6);
}

TEST(PhaseMagnitude, HalfLitOppositeAndBelowTheObserver) {
  double lit = 0, phase = 0;
  const StateVector sat = vec(7000, 0, 0);
  const StateVector obs = vec(6378.137, 0, 0);
  // Sun at right angles: half lit, D = 621.863 km.
  EXPECT_NEAR(PhaseMagnitude(10.3, vec(0, kAu, 0), sat, obs, lit, phase), 10.0237, 1e-3);
  EXPECT_NEAR(lit, 50.0, 1e-2);
  EXPECT_NEAR(phase, 90.0, 1e-2);
  // Observer exactly opposite the Sun (beta = pi): k = 0 and the magnitude is unknown.
  EXPECT_EQ(PhaseMagnitude(10.3, vec(kAu, 0, 0), sat, obs, lit, phase), 100.0);
  EXPECT_EQ(lit, 0.0);
  EXPECT_NEAR(phase, 180.0, 1e-9);
  // Unknown satellites end at 100 too.
  EXPECT_EQ(PhaseMagnitude(100.0, vec(0, kAu, 0), sat, obs, lit, phase), 100.0);
  // An observer farther out than the satellite gives D < 0: the NaN is passed on.
  EXPECT_TRUE(std::isnan(PhaseMagnitude(10.3, vec(0, kAu, 0), sat, vec(0, 0, 8000), lit, phase)));
}

// Satellite on +x flying along +y: v = y, r = x, c = v x r = -z.
class Flares : public ::testing::Test {
 protected:
  StateVector pos = vec(7000, 0, 0);
  StateVector vel = vec(0, 7.5, 0);
  StateVector normal(const Antenna& a) {
    const double ca = std::cos(a.tilt), sa = std::sin(a.tilt);
    return add(add(vec(0, ca * std::cos(a.azimuth), 0), vec(0, 0, ca * std::sin(a.azimuth))), vec(sa, 0, 0));
  }
  // Observer 1000 km away along -d, d the line of sight towards the satellite.
  StateVector observerAlong(const StateVector& d) { return add(pos, d, -1000.0); }
  StateVector sunAlong(const StateVector& s) { return add(pos, s, kAu); }
  static StateVector mirror(const StateVector& d, const StateVector& n) { return add(d, n, -2.0 * Dot(d, n)); }
  // The flare of the Sun in direction s as seen from obs, filling psi, angle and antenna.
  double flare(const StateVector& s, const StateVector& obs) {
    return FlareMagnitude(sunAlong(s), pos, vel, obs, psi, angle, antenna);
  }
  double psi = 0, angle = 0;
  std::int16_t antenna = 0;
};

TEST_F(Flares, PerfectFrontReflectionIsTheBrightestCase) {
  const StateVector n = normal(kFrontAntenna);
  const StateVector s = unit(vec(0.2, 1, 0.3));
  ASSERT_GT(Dot(s, n), 0);
  const StateVector obs = observerAlong(mirror(s, n));
  const double magnitude = flare(s, obs);
  EXPECT_EQ(antenna, 1);
  EXPECT_NEAR(angle, 0.0, 1e-6);
  const double distance = pos.w - obs.w;
  EXPECT_NEAR(magnitude - std::log10(distance / (std::cos(psi / 2) + 1e-5)), -4.8 + 5.5 * std::log10(0.047), 1e-3);
}

TEST_F(Flares, FrontWithinFiveDegreesSkipsLeftAndRight) {
  const StateVector nf = normal(kFrontAntenna);
  const StateVector nl = normal(kLeftAntenna);
  // A line of sight near both panel planes mirrors to two nearby directions;
  // the Sun just beyond the Left one is closer to Left than to Front.
  const StateVector d = unit(add(unit(cross(nf, nl)), add(nf, nl), -0.02));
  const StateVector mf = mirror(d, nf), ml = mirror(d, nl);
  const StateVector s = unit(add(ml, add(ml, mf, -1.0), 0.3));
  const StateVector obs = observerAlong(d);
  const double front = PanelReflection(sunAlong(s), pos, vel, obs, kFrontAntenna.tilt, kFrontAntenna.azimuth, psi);
  const double left = PanelReflection(sunAlong(s), pos, vel, obs, kLeftAntenna.tilt, kLeftAntenna.azimuth, psi);
  ASSERT_LT(left, front);
  ASSERT_LE(front, kFlareThreshold);
  EXPECT_NE(flare(s, obs), 100.0);
  EXPECT_EQ(antenna, 1);
  EXPECT_EQ(angle, front);
}

TEST_F(Flares, LeftReflectionAndObserverBehindEveryPanel) {
  const StateVector nl = normal(kLeftAntenna);
  const StateVector s = unit(add(nl, vec(0, 0.3, 0.1)));
  ASSERT_GT(Dot(s, nl), 0);
  EXPECT_LT(flare(s, observerAlong(mirror(s, nl))), 100.0);
  EXPECT_EQ(antenna, 2);
  EXPECT_NEAR(angle, 0.0, 1e-6);
  // Radially outside the satellite the observer sees every panel's back.
  psi = -1;
  EXPECT_EQ(flare(s, vec(14000, 0, 0)), 100.0);
  EXPECT_EQ(angle, 100.0);
  EXPECT_EQ(antenna, 1);
  EXPECT_EQ(psi, -1);
  EXPECT_STREQ(AntennaName(3), "Right MMA");
}

}  // namespace
}  // namespace norvane
