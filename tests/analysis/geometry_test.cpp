#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

#include "core/analysis/eclipse.h"
#include "core/analysis/flares.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/pass_geometry.h"
#include "core/analysis/satellite_shape.h"
#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/vector_math.h"
#include "hwy/targets.h"

namespace norvane {
namespace {

constexpr double kDegree = kPi / 180.0;
constexpr double kAu = 1.496e8;  // km

StateVector vec(double x, double y, double z) {
  StateVector v{x, y, z, 0};
  VecMagnitude(v);
  return v;
}
// A vector of the given length in a random direction.
StateVector unit3(std::mt19937& random, std::uniform_real_distribution<double>& unit, double length) {
  const StateVector v = vec(unit(random), unit(random), unit(random) + 1e-3);
  return vec(length * v.x / v.w, length * v.y / v.w, length * v.z / v.w);
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

// The lanes of sampleMany against sample() for observers from the equator
// to the poles, times from 1995 to 2030 and states all around the Earth, with
// a row at the observer's zenith, one just off it and rows sample() rejects
// (inside the Earth, not a number, an infinite velocity).
TEST(SkyViewSampleMany, EqualsSampleRowByRow) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::mt19937 random(11);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  double worstAngle = 0, worstKm = 0;
  int valid = 0, below = 0;
  for (const Geodetic& where : {Geodetic{0, 0, 0, 0}, Geodetic{51.5 * kDegree, -0.1 * kDegree, 0.05, 0},
                                Geodetic{-33.9 * kDegree, 151.2 * kDegree, 0.1, 0},
                                Geodetic{89.9 * kDegree, 15 * kDegree, 2.8, 0}}) {
    std::vector<double> jds;
    BatchStates states;
    states.resize(203);
    for (std::size_t k = 0; k < states.rows(); ++k) {
      jds.push_back(2449700.0 + 12800.0 * (unit(random) + 1.0) / 2.0);
      const double radius = 6400.0 + 36000.0 * (unit(random) + 1.0) / 2.0;
      const StateVector r = unit3(random, unit, radius), v = unit3(random, unit, 7.5);
      for (const auto& [f, value] : {std::pair{StateField::X, r.x}, {StateField::Y, r.y}, {StateField::Z, r.z},
                                     {StateField::Vx, v.x}, {StateField::Vy, v.y}, {StateField::Vz, v.z}})
        states.at(f, k) = value;
    }
    // Rows 0 and 1: straight up from the observer, and 0.1 degree off it.
    for (std::size_t k : {0u, 1u}) {
      Geodetic observer = where;
      StateVector pos, vel;
      ObserverPosVel(jds[k], observer, pos, vel);
      const double tilt = k == 0 ? 0.0 : 0.1 * kDegree;
      const double up[3] = {std::cos(where.lat + tilt) * std::cos(observer.theta),
                            std::cos(where.lat + tilt) * std::sin(observer.theta), std::sin(where.lat + tilt)};
      states.at(StateField::X, k) = pos.x + 800.0 * up[0];
      states.at(StateField::Y, k) = pos.y + 800.0 * up[1];
      states.at(StateField::Z, k) = pos.z + 800.0 * up[2];
    }
    states.at(StateField::X, 2) = 6000.0;
    states.at(StateField::Y, 2) = states.at(StateField::Z, 2) = 0.0;
    states.at(StateField::Y, 3) = nan;
    states.at(StateField::Vz, 4) = std::numeric_limits<double>::infinity();

    SkyView lanes(where), scalar(where);
    std::vector<SkySample> many(jds.size());
    // Every instruction set the machine runs.
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
      hwy::SetSupportedTargetsForTest(target);
      lanes.sampleMany(jds, states, many);
      for (std::size_t k = 0; k < jds.size(); ++k) {
        OrbitState state;
        for (std::size_t i = 0; i < 3; ++i) {
          state.positionKm[i] = states.at(static_cast<StateField>(i), k);
          state.velocityKmS[i] = states.at(static_cast<StateField>(i + 3), k);
        }
        const SkySample one = scalar.sample(jds[k], state);
        const SkySample& m = many[k];
        EXPECT_EQ(m.valid, one.valid) << k;
        EXPECT_EQ(m.jd, one.jd);
        EXPECT_EQ(m.valid, k < 2 || k > 4) << k;
        valid += one.valid ? 1 : 0;
        below += one.elevation < 0 ? 1 : 0;
        // At the zenith the elevation and the separation are as flat as arcsine
        // and arccosine at 1, and the azimuth is any value; due north (row 1)
        // it may come out as 0 or as a whole turn.
        const double angleTolerance = k == 0 ? 1e-7 : 1e-9;
        for (const auto& [a, b] : {std::pair{m.elevation, one.elevation}, {m.separation, one.separation},
                                   {k == 0 ? 0.0 : m.azimuth, k == 0 ? 0.0 : one.azimuth}}) {
          const double difference = std::fabs(std::remainder(a - b, kTwoPi));
          EXPECT_LT(difference, angleTolerance) << k << ": " << a << " " << b;
          if (k != 0) worstAngle = std::max(worstAngle, difference);
        }
        EXPECT_NEAR(m.separationRate, one.separationRate, 1e-9 * std::max(1.0, std::fabs(one.separationRate))) << k;
        for (const auto& [a, b] :
             {std::pair{m.footToObserver, one.footToObserver}, {m.footToSatellite, one.footToSatellite},
              {m.satPos.x, one.satPos.x}, {m.satPos.y, one.satPos.y}, {m.satPos.z, one.satPos.z},
              {m.satPos.w, one.satPos.w}, {m.obsPos.x, one.obsPos.x}, {m.obsPos.y, one.obsPos.y},
              {m.obsPos.z, one.obsPos.z}, {m.obsPos.w, one.obsPos.w}}) {
          if (std::isnan(b)) {
            EXPECT_TRUE(std::isnan(a)) << k;
            continue;
          }
          EXPECT_NEAR(a, b, 1e-6) << k;
          worstKm = std::max(worstKm, std::fabs(a - b));
        }
      }
    }
    hwy::SetSupportedTargetsForTest(0);
  }
  std::printf("sampleMany vs sample: %d valid rows, %d below the horizon; largest differences %.3g rad, %.3g km\n",
              valid, below, worstAngle, worstKm);
  EXPECT_GT(below, 100);
  EXPECT_GT(valid - below, 100);
}

}  // namespace
}  // namespace norvane
