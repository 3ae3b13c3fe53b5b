// The pass planner against a brute-force reference built on the same models
// and geometry: a 10 s scan, refined to 1 s steps around every crossing of the
// minimum elevation and every culmination that comes within 2 degrees of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "analysis_fixtures.h"
#include "core/analysis/eclipse.h"
#include "core/analysis/pass_planner.h"
#include "core/analysis/satellite_shape.h"
#include "core/analysis/visibility.h"
#include "core/astro/sidereal_time.h"

namespace norvane {
namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr double kSecond = 1.0 / 86400.0;

Geodetic observerAt(double latDeg) { return Geodetic{latDeg * kDegree, 10.0 * kDegree, 0.1, 0}; }

Satellite elements(const char* name, int catnr, double inclination, double eccentricity, double revsPerDay,
                   double node, double perigee, double anomaly) {
  Satellite s;
  std::strncpy(s.name.data(), name, s.name.size() - 1);
  s.catnr = catnr;
  s.epoch = 17104.5;  // 2017-04-14 12:00 UTC
  s.xincl = inclination;
  s.eo = eccentricity;
  s.xno = revsPerDay;
  s.xnodeo = node;
  s.omegao = perigee;
  s.xmo = anomaly;
  return s;
}

// A geostationary satellite over the given east longitude at its epoch.
Satellite geostationary(int catnr, double longitudeDeg) {
  const double gmst = GreenwichSiderealTime(test::kVisualEpoch) / kDegree;
  const double anomaly = std::fmod(longitudeDeg + gmst - 80.0 - 100.0 + 720.0, 360.0);
  return elements("GEO", catnr, 0.05, 0.0003, 1.00273, 80.0, 100.0, anomaly);
}

struct Counted : StateSource {
  explicit Counted(const Satellite& s) : source(s) {}
  OrbitState stateAt(double jd) override {
    ++calls;
    return source.stateAt(jd);
  }
  PropagatorSource source;
  long calls = 0;
};

struct ReferencePass {
  double aos, tca, los, maxElevation;
  bool clippedStart, clippedEnd;
};

class Reference {
 public:
  Reference(const Satellite& satellite, const Geodetic& observer, double minDeg)
      : source_(std::make_unique<PropagatorSource>(satellite)), view_(observer), min_(minDeg * kDegree) {}

  double elevation(double jd) { return sample(jd).elevation; }
  SkySample sample(double jd) { return view_.sample(jd, source_->stateAt(jd)); }
  SkyView& view() { return view_; }

  std::vector<ReferencePass> passes(double start, double end) {
    std::vector<double> coarse;
    const int n = static_cast<int>(std::round((end - start) / (10 * kSecond)));
    for (int i = 0; i <= n; ++i) coarse.push_back(elevation(start + i * 10 * kSecond));
    // Times and elevations: the 10 s grid plus 1 s steps where it matters.
    std::vector<std::pair<double, double>> fine;
    for (int i = 0; i <= n; ++i) {
      const double t = start + i * 10 * kSecond;
      fine.emplace_back(t, coarse[static_cast<std::size_t>(i)]);
      if (i == n) break;
      const double a = coarse[static_cast<std::size_t>(i)];
      const double b = coarse[static_cast<std::size_t>(i) + 1];
      const double before = i > 0 ? coarse[static_cast<std::size_t>(i) - 1] : a;
      const double after = i + 2 <= n ? coarse[static_cast<std::size_t>(i) + 2] : b;
      const bool crossing = (a >= min_) != (b >= min_);
      const bool peak = std::max(a, b) > min_ - 2 * kDegree && (a >= before || b >= after);
      if (crossing || peak) {
        for (int k = 1; k < 10; ++k) fine.emplace_back(t + k * kSecond, elevation(t + k * kSecond));
      }
    }
    std::vector<ReferencePass> out;
    for (std::size_t i = 0; i < fine.size(); ++i) {
      if (fine[i].second < min_) continue;
      std::size_t j = i;
      while (j + 1 < fine.size() && fine[j + 1].second >= min_) ++j;
      ReferencePass p{fine[i].first, fine[i].first, fine[j].first, fine[i].second, i == 0, j + 1 == fine.size()};
      if (!p.clippedStart) p.aos = interpolate(fine[i - 1], fine[i]);
      if (!p.clippedEnd) p.los = interpolate(fine[j], fine[j + 1]);
      std::size_t top = i;
      for (std::size_t k = i; k <= j; ++k) {
        if (fine[k].second > fine[top].second) top = k;
      }
      p.tca = fine[top].first;
      p.maxElevation = fine[top].second;
      // A pass through the zenith peaks sharply: 0.05 s steps around the top.
      if (fine[top].second > 80 * kDegree) {
        for (int step = -20; step <= 20; ++step) {
          const double dt = step * 0.05;
          const double e = elevation(fine[top].first + dt * kSecond);
          if (e > p.maxElevation) {
            p.maxElevation = e;
            p.tca = fine[top].first + dt * kSecond;
          }
        }
        out.push_back(p);
        i = j;
        continue;
      }
      if (top > i && top < j) {
        // The vertex of the parabola through the 1 s samples around the top.
        const double ym = fine[top - 1].second, y0 = fine[top].second, yp = fine[top + 1].second;
        const double curvature = ym - 2 * y0 + yp;
        if (curvature < 0) {
          const double x = 0.5 * (ym - yp) / curvature;
          if (std::fabs(x) <= 1) {
            p.tca += x * (fine[top + 1].first - fine[top].first);
            p.maxElevation = y0 - 0.25 * (ym - yp) * x;
          }
        }
      }
      out.push_back(p);
      i = j;
    }
    return out;
  }

 private:
  double interpolate(std::pair<double, double> a, std::pair<double, double> b) const {
    return a.first + (min_ - a.second) / (b.second - a.second) * (b.first - a.first);
  }
  std::unique_ptr<PropagatorSource> source_;
  SkyView view_;
  double min_;
};

// Every reference pass of 30 s or more is planned and every planned pass is
// in the reference: AOS, TCA, LOS within 1 s, maximum elevation within 0.01 deg.
std::size_t expectSamePasses(const Satellite& satellite, const Geodetic& observer, double minDeg, double days) {
  const double start = test::kVisualEpoch;
  const double end = start + days;
  Reference reference(satellite, observer, minDeg);
  const std::vector<ReferencePass> expected = reference.passes(start, end);
  PlannerOptions options;
  options.minElevationDeg = minDeg;
  const std::vector<PlannedPass> planned = planPasses(satellite, 7, observer, start, end, options);

  std::size_t p = 0;
  for (const ReferencePass& r : expected) {
    const double seconds = (r.los - r.aos) / kSecond;
    while (p < planned.size() && planned[p].los < r.aos - 2 * kSecond) {
      ADD_FAILURE() << "planned pass not in the reference, AOS " << planned[p].aos;
      ++p;
    }
    if (p == planned.size() || planned[p].aos > r.los + 2 * kSecond) {
      if (seconds >= 30) ADD_FAILURE() << "missed a pass of " << seconds << " s at " << r.aos;
      continue;
    }
    const PlannedPass& got = planned[p++];
    SCOPED_TRACE(::testing::Message() << "pass at " << r.aos << ", " << seconds << " s");
    EXPECT_NEAR(got.aos, r.aos, 1 * kSecond);
    EXPECT_NEAR(got.los, r.los, 1 * kSecond);
    EXPECT_EQ(got.inProgressAtStart, r.clippedStart);
    EXPECT_EQ(got.endsAfterSpan, r.clippedEnd);
    EXPECT_EQ(got.neverSets, r.clippedStart && r.clippedEnd);
    EXPECT_NEAR(got.tcaElevation, r.maxElevation / kDegree, 0.01);
    // Near the top of a slow pass the time of culmination hardly shows in the
    // elevation; there it is held to the elevation instead.
    const double elevationAtTca = reference.elevation(got.tca);
    if (r.maxElevation - reference.elevation(r.tca + 30 * kSecond) > 1e-5) {
      EXPECT_NEAR(got.tca, r.tca, 1 * kSecond);
    } else {
      EXPECT_NEAR(elevationAtTca, r.maxElevation, 1e-6);
    }
    // Azimuths where the reference puts the satellite at the planned times,
    // which are rounded to the second: within the turn of half a second.
    auto azimuthAt = [&](double jd) { return reference.view().azimuthOf(reference.sample(jd)) / kDegree; };
    auto turn = [](double a, double b) { return std::fabs(std::remainder(a - b, 360.0)); };
    for (auto [azimuth, jd] : {std::pair{got.aosAzimuth, got.aos}, {got.tcaAzimuth, got.tca}, {got.losAzimuth, got.los}}) {
      const double slack = turn(azimuthAt(jd - 0.6 * kSecond), azimuthAt(jd + 0.6 * kSecond));
      EXPECT_LT(turn(azimuth, azimuthAt(jd)), 0.01 + slack) << "azimuth at " << jd;
    }
    EXPECT_LE(got.aos, got.tca);
    EXPECT_LE(got.tca, got.los);
  }
  for (; p < planned.size(); ++p) ADD_FAILURE() << "planned pass not in the reference, AOS " << planned[p].aos;
  return expected.size();
}

class AgainstBruteForce : public ::testing::TestWithParam<double> {};

// The ISS (51.6 degrees) and the decaying orbit never rise at 78 degrees.
TEST_P(AgainstBruteForce, IssAndSunSynchronous) {
  const double lat = GetParam();
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const auto& iss = catalogue->satellites[test::kIssSlot];
  const auto& terra = catalogue->satellites[111];
  EXPECT_EQ(expectSamePasses(iss, observerAt(lat), 0.0, 3.0) > 0, lat < 60);
  EXPECT_GT(expectSamePasses(terra, observerAt(lat), 0.0, 3.0), 10u);
}

TEST_P(AgainstBruteForce, MolniyaGeostationaryAndDecaying) {
  const double lat = GetParam();
  const Satellite molniya = elements("MOLNIYA", 90001, 62.9, 0.72, 2.00563, 30.0, 270.0, 10.0);
  Satellite decaying = elements("DECAYING", 90002, 51.6, 0.0005, 16.05, 200.0, 90.0, 0.0);
  decaying.bstar = 0.0008;
  decaying.xndt2o = 0.005;
  EXPECT_GT(expectSamePasses(molniya, observerAt(lat), 0.0, 3.0), 3u);
  EXPECT_EQ(expectSamePasses(decaying, observerAt(lat), 0.0, 3.0) > 0, lat < 60);
  // Over the observers' meridian: up all the time; on the far side: never.
  EXPECT_EQ(expectSamePasses(geostationary(90003, 10.0), observerAt(lat), 0.0, 3.0), 1u);
  EXPECT_EQ(expectSamePasses(geostationary(90004, 190.0), observerAt(lat), 0.0, 3.0), 0u);
}

INSTANTIATE_TEST_SUITE_P(Latitudes, AgainstBruteForce, ::testing::Values(0.0, 54.0, 78.0));

// Grazing passes: a minimum elevation just below a culmination keeps the pass,
// however short; just above it drops it; and the brute force agrees.
TEST(PassPlanner, GrazingPassesAroundTheMinimumElevation) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const Satellite& iss = catalogue->satellites[test::kIssSlot];
  const Geodetic observer = observerAt(54.0);
  const double start = test::kVisualEpoch;
  const std::vector<PlannedPass> all = planPasses(iss, 0, observer, start, start + 1, {});
  ASSERT_GE(all.size(), 3u);
  for (const PlannedPass& pass : all) {
    if (pass.inProgressAtStart || pass.endsAfterSpan) continue;
    for (double offset : {-0.02, -0.001, 0.001, 0.02}) {
      PlannerOptions options;
      options.minElevationDeg = pass.tcaElevation + offset;
      const auto found = planPasses(iss, 0, observer, pass.aos - 0.01, pass.los + 0.01, options);
      SCOPED_TRACE(::testing::Message() << "max " << pass.tcaElevation << " offset " << offset);
      ASSERT_EQ(found.size(), offset < 0 ? 1u : 0u);
      if (offset < 0) {
        EXPECT_NEAR(found[0].tca, pass.tca, 1 * kSecond);
        EXPECT_LT(found[0].durationSeconds(), offset < -0.01 ? 90 : 20);
      }
    }
    // A culmination a thousandth of a degree up, however the steps fall around it.
    for (int step = 0; 0.0101 + step * 0.00237 < 0.06; ++step) {
      const double lead = 0.0101 + step * 0.00237;
      PlannerOptions options;
      options.minElevationDeg = pass.tcaElevation - 0.001;
      const auto found = planPasses(iss, 0, observer, pass.aos - lead, pass.los + 0.01, options);
      EXPECT_EQ(std::count_if(found.begin(), found.end(),
                              [&](const PlannedPass& p) { return std::fabs(p.tca - pass.tca) < 1.5 * kSecond; }),
                1)
          << lead;
    }
    expectSamePasses(iss, observer, pass.tcaElevation - 0.02, 1.0);
  }
}

// A geostationary satellite hovering at the minimum elevation with a daily
// wobble across it: every crossing found without stepping through the days.
TEST(PassPlanner, GeostationaryNearTheMinimumElevationIsCheap) {
  const Satellite geo = geostationary(90005, 10.0);
  const Geodetic observer = observerAt(78.0);
  Reference reference(geo, observer, 0.0);
  const double mean = reference.elevation(test::kVisualEpoch) / kDegree;
  PlannerOptions options;
  options.minElevationDeg = mean;
  Counted source(geo);
  const auto passes = planPassesFrom(source, geo, 0, observer, test::kVisualEpoch, test::kVisualEpoch + 3, options);
  EXPECT_GE(passes.size(), 2u);
  EXPECT_LT(source.calls, 2000);
  expectSamePasses(geo, observer, mean, 3.0);

  Counted far(geostationary(90006, 190.0));
  EXPECT_TRUE(planPassesFrom(far, geostationary(90006, 190.0), 0, observer, test::kVisualEpoch,
                             test::kVisualEpoch + 10, {})
                  .empty());
  EXPECT_LT(far.calls, 200);
}

// The visible part against the same predicate evaluated every second.
TEST(PassPlanner, VisiblePartAndMagnitude) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const Satellite& iss = catalogue->satellites[test::kIssSlot];
  int visiblePasses = 0;
  for (double lat : {0.0, 54.0, -35.0}) {
  const Geodetic observer = observerAt(lat);
  Reference reference(iss, observer, 0.0);
  SkyView view(observer);
  for (const PlannedPass& pass : planPasses(iss, 0, observer, test::kVisualEpoch, test::kVisualEpoch + 3, {})) {
    double first = 0, last = 0, brightest = 100;
    bool inFirst = false, done = false;
    for (int second = 0; pass.aos + second * kSecond <= pass.los; ++second) {
      const double t = pass.aos + second * kSecond;
      const SkySample s = reference.sample(t);
      StateVector sun;
      double depth = 0;
      const bool visible = view.sunElevation(t, sun) < kDarkSkySunElevation && SatEclipsed(s.satPos, sun, depth) == 0;
      if (visible && !done) {
        if (!inFirst) first = t;
        inFirst = true;
        last = t;
        double illumination = 0, phase = 0;
        brightest = std::min(brightest, PhaseMagnitude(StandardMagnitude(iss.catnr), sun, s.satPos, s.obsPos,
                                                       illumination, phase));
      } else if (inFirst) {
        done = true;
      }
    }
    SCOPED_TRACE(::testing::Message() << "pass at " << pass.aos);
    ASSERT_EQ(pass.visible, inFirst);
    if (!inFirst) continue;
    ++visiblePasses;
    EXPECT_NEAR(pass.visibleStart, first, 1.5 * kSecond);
    EXPECT_NEAR(pass.visibleEnd, last, 1.5 * kSecond);
    EXPECT_LE(pass.minMagnitude, brightest + 0.01);
    EXPECT_GT(pass.minMagnitude, brightest - 0.02);
  }
  }
  EXPECT_GE(visiblePasses, 3);
}

// An orbit that reenters within the span: the search ends there, with sane passes before.
TEST(PassPlanner, ReentryEndsTheSearch) {
  Satellite falling = elements("FALLING", 90007, 51.6, 0.001, 16.4, 200.0, 90.0, 0.0);
  falling.bstar = 0.02;
  falling.xndt2o = 0.05;
  Counted source(falling);
  const auto passes =
      planPassesFrom(source, falling, 0, observerAt(40.0), test::kVisualEpoch, test::kVisualEpoch + 10, {});
  EXPECT_LT(source.calls, 20000);
  for (const PlannedPass& p : passes) {
    EXPECT_TRUE(std::isfinite(p.tcaElevation) && std::isfinite(p.aosAzimuth) && p.aos <= p.los);
  }
  const OrbitState late = source.stateAt(test::kVisualEpoch + 10);
  const double r = std::hypot(late.positionKm[0], late.positionKm[1], late.positionKm[2]);
  EXPECT_FALSE(r > 6378.137) << "still in orbit after ten days: " << r;
}

TEST(PassPlanner, CatalogueSortedByAosAndNoOrbitNoPasses) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const std::vector<int> slots = selectedSlots(*catalogue);
  const auto passes =
      planCataloguePasses(*catalogue, slots, observerAt(54.0), test::kVisualEpoch, test::kVisualEpoch + 1, {});
  ASSERT_GT(passes.size(), 100u);
  for (std::size_t i = 1; i < passes.size(); ++i) EXPECT_LE(passes[i - 1].aos, passes[i].aos);
  Satellite blank;
  EXPECT_TRUE(planPasses(blank, 0, observerAt(54.0), test::kVisualEpoch, test::kVisualEpoch + 1, {}).empty());
}

}  // namespace
}  // namespace norvane
