#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/astro/numeric.h"
#include "core/astro/planet_elements.h"
#include "core/astro/planets.h"
#include "core/astro/star_catalogue.h"
#include "core/astro/star_placement.h"
#include "core/astro/sun.h"

namespace norvane {
namespace {

constexpr double kDeg = kPi / 180.0;
constexpr double kAu = 149597870.691;

TEST(Planets, BodyIndexCountsTheEarthFirst) {
  const char* names[] = {"Earth", "Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune", "Pluto"};
  for (int i = 0; i < kPlanetCount; ++i) {
    EXPECT_EQ(std::string(PlanetRecord(i).name.data()), (names[i] + std::string(15, ' ')).substr(0, 15));
  }
  EXPECT_EQ(PlanetRecord(8).epoch, 2446640.5);
  EXPECT_EQ(PlanetRecord(8).obliquityEpoch, 2446640.5);
}

TEST(Planets, EarthSetsTheObliquityOfTheTableEpoch) {
  PlanetCache cache;
  StateVector mars;
  PlanetPosition(2451545.0, 3, mars, cache);  // no Earth yet: the empty cache flattens y and z
  EXPECT_EQ(mars.y, 0.0);
  EXPECT_EQ(mars.z, 0.0);

  StateVector earth;
  EXPECT_EQ(PlanetPosition(2460000.5, 0, earth, cache), 1);
  const double eps = Obliquity(2446800.5);
  EXPECT_DOUBLE_EQ(cache.cosEpsilon, std::cos(eps));
  EXPECT_NEAR(earth.z * std::cos(eps) - earth.y * std::sin(eps), 0.0, 1e-3);  // z = 0 before turning
  EXPECT_NEAR(earth.w / kAu, 1.0, 0.017);
  EXPECT_NEAR(std::sqrt(earth.x * earth.x + earth.y * earth.y + earth.z * earth.z), earth.w, 1e-3);

  PlanetPosition(2460000.5, 3, mars, cache);
  EXPECT_GT(std::fabs(mars.z), 1e6);
  EXPECT_NEAR(mars.w / kAu, 1.52371, 0.15);
}

TEST(Planets, TheEarthIsSeenAtTheNadir) {
  Geodetic observer{45.0 * kDeg, 7.0 * kDeg, 0.0, 0.0};
  PlanetCache planetCache;
  LookAngleCache lookCache;
  LookAngles out;
  PlanetLookAngles(2455000.5, 0, observer, planetCache, lookCache, false, out);
  EXPECT_LT(out.elevation, -89.0 * kDeg);
  EXPECT_NEAR(out.range, 6367.5, 1.0);
}

TEST(StarCatalogue, BandsOrderAndLastRecord) {
  const auto mag = [](int i) { return StarCatalogue[static_cast<std::size_t>(i)].magnitude; };
  // Scans of magnitude bands end where the sorted catalogue crosses the band.
  const struct { int limit, count; double last, next; } bands[] = {
      {1, 16, 1.16, 1.25}, {2, 50, 2.02, 2.02}, {3, 174, 3.01, 3.01}, {4, 505, 3.97, 3.97}};
  for (const auto& band : bands) {
    EXPECT_EQ(StarScanCount(band.limit), band.count);
    EXPECT_EQ(mag(band.count - 1), band.last);
    EXPECT_EQ(mag(band.count), band.next);
  }
  EXPECT_EQ(StarScanCount(5), 1630);
  EXPECT_EQ(mag(0), -0.72);
  EXPECT_EQ(mag(1628), 5.0);
  EXPECT_EQ(mag(1629), -1.46);  // Sirius comes last
  for (int i = 1; i < 1629; ++i) EXPECT_LE(mag(i - 1), mag(i)) << i;
  const StarRecord& sirius = StarCatalogue[1629];
  EXPECT_NEAR(AcTan(sirius.sinRa, sirius.cosRa) / kDeg, 101.3, 0.05);
  EXPECT_NEAR(std::atan2(sirius.sinDec, sirius.cosDec) / kDeg, -16.7, 0.05);
  int negative = 0;
  for (int i = 0; i < StarScanCount(0); ++i) negative += mag(i) < 0.0;
  EXPECT_EQ(negative, 3);
}

TEST(StarCatalogue, LinksAreOnePerStarAndInRange) {
  int links = 0;
  for (int i = 0; i < kStarCount; ++i) {
    const int target = StarLinks[static_cast<std::size_t>(i)];
    ASSERT_GE(target, 0);
    ASSERT_LT(target, kStarCount);
    if (target != 0) {
      EXPECT_NE(target, i);
    }
    links += target != 0;
    const StarRecord& s = StarCatalogue[static_cast<std::size_t>(i)];
    EXPECT_NEAR(s.sinRa * s.sinRa + s.cosRa * s.cosRa, 1.0, 1e-15);
    EXPECT_NEAR(s.sinDec * s.sinDec + s.cosDec * s.cosDec, 1.0, 1e-15);
  }
  EXPECT_EQ(links, 272);
}

TEST(StarHorizontal, PlacesStarsOnTheMeridianAndRejectsTheHorizon) {
  const StarObserver observer{std::sin(45.0 * kDeg), std::cos(45.0 * kDeg)};
  const double ra = 1.0;
  const auto star = [ra](double dec) {
    return StarRecord{std::sin(ra), std::cos(ra), std::sin(dec * kDeg), std::cos(dec * kDeg), 2.0};
  };
  StarPoint p;
  ASSERT_EQ(StarHorizontal(std::sin(ra), std::cos(ra), star(60.0), observer, p), 1);
  EXPECT_NEAR(p.altitude, 75.0 * kDeg, 1e-12);
  EXPECT_NEAR(p.azimuth, kTwoPi, 1e-12);  // due north, reported as 2pi
  ASSERT_EQ(StarHorizontal(std::sin(ra), std::cos(ra), star(0.0), observer, p), 1);
  EXPECT_NEAR(p.altitude, 45.0 * kDeg, 1e-12);
  EXPECT_NEAR(p.azimuth, 3.0 * kPi, 1e-12);  // due south, not reduced

  p = StarPoint{-7.0, 0.0};
  EXPECT_EQ(StarHorizontal(std::sin(ra), std::cos(ra), star(-50.0), observer, p), 0);
  EXPECT_LT(p.altitude, 0.0);
  EXPECT_EQ(p.azimuth, -7.0);  // only the altitude is written

  // Six hours west of the meridian a star on the equator sets exactly (altitude 0 or a hair off).
  const double theta = ra + kPi / 2.0;
  const int above = StarHorizontal(std::sin(theta), std::cos(theta), star(0.0), observer, p);
  EXPECT_NEAR(p.altitude, 0.0, 1e-15);
  EXPECT_EQ(above, p.altitude > 0.0 ? 1 : 0);
}

}  // namespace
}  // namespace norvane
