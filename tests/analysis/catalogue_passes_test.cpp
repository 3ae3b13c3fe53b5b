// Whole-catalogue planning: the pre-filter never drops a satellite with a
// pass; searches kept in step with their samples computed in batches find the
// passes the planner finds one satellite at a time; and worker threads
// neither lose, duplicate nor reorder passes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "core/analysis/catalogue_passes.h"
#include "tools/synthetic_catalogue.h"

namespace norvane {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kStart = 2457858.0;  // 2017-04-14 0h UTC, two days after the synthetic epochs

std::vector<Satellite> catalogue(std::size_t count) {
  std::vector<Satellite> templates;
  for (const char* name : {"/visual_2017-04-14.txt", "/iridium_2014-06-21.txt", "/sources/sgp4-ver.tle"}) {
    std::ifstream in(std::string(NORVANE_DATA_DIR) + name, std::ios::binary);
    for (const Satellite& s : readElementSets(std::string{std::istreambuf_iterator<char>(in), {}}))
      templates.push_back(s);
  }
  return syntheticCatalogue(templates, count, 0.08, 99);
}

// Times within a second, the maximum elevation within 0.01 degree: batched
// samples may differ from single ones in the last digits, enough to round a
// time to the next second (a second apart as Julian dates is 1.00003 s).
bool samePass(const PlannedPass& a, const PlannedPass& b) {
  constexpr double kSecond = 1.001 / 86400.0;
  return a.slot == b.slot && a.catnr == b.catnr && std::fabs(a.aos - b.aos) <= kSecond &&
         std::fabs(a.tca - b.tca) <= kSecond && std::fabs(a.los - b.los) <= kSecond &&
         std::fabs(a.tcaElevation - b.tcaElevation) <= 0.01 && a.visible == b.visible && a.neverSets == b.neverSets;
}

std::vector<PlannedPass> onePerSatellite(const std::vector<Satellite>& sats, const Geodetic& observer,
                                         const PlannerOptions& options) {
  std::vector<PlannedPass> passes;
  for (std::size_t i = 0; i < sats.size(); ++i) {
    for (const PlannedPass& p : planPasses(sats[i], static_cast<int>(i), observer, kStart, kStart + 1.0, options))
      passes.push_back(p);
  }
  std::stable_sort(passes.begin(), passes.end(),
                   [](const PlannedPass& a, const PlannedPass& b) { return a.aos < b.aos; });
  return passes;
}

// Passes a second apart may swap places in the list by AOS; compared
// satellite by satellite.
std::vector<PlannedPass> bySatellite(std::vector<PlannedPass> passes) {
  std::stable_sort(passes.begin(), passes.end(),
                   [](const PlannedPass& a, const PlannedPass& b) { return a.slot < b.slot; });
  return passes;
}

void expectSamePasses(const CataloguePlan& plan, const std::vector<PlannedPass>& expectedByAos, int threads) {
  EXPECT_EQ(plan.threads, threads);
  EXPECT_TRUE(std::is_sorted(plan.passes.begin(), plan.passes.end(),
                             [](const PlannedPass& a, const PlannedPass& b) { return a.aos < b.aos; }));
  ASSERT_EQ(plan.passes.size(), expectedByAos.size()) << threads << " threads";
  const std::vector<PlannedPass> found = bySatellite(plan.passes);
  const std::vector<PlannedPass> expected = bySatellite(expectedByAos);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const PlannedPass& got = found[i];
    const PlannedPass& want = expected[i];
    ASSERT_TRUE(samePass(got, want)) << threads << " threads, pass " << i << " of slot " << want.slot << ": aos "
                                     << (got.aos - want.aos) * 86400.0 << " s, tca " << (got.tca - want.tca) * 86400.0
                                     << " s, los " << (got.los - want.los) * 86400.0 << " s, elevation "
                                     << got.tcaElevation << " for " << want.tcaElevation;
  }
}

TEST(CataloguePasses, EqualTheScalarPlannerOnAnyNumberOfThreads) {
  const std::vector<Satellite> sats = catalogue(500);
  // Far north, so that the pre-filter leaves out the orbits that stay low.
  const Geodetic observer{70.0 * kDegree, 20.0 * kDegree, 0.1, 0};
  PlannerOptions options{10.0};
  const std::vector<PlannedPass> expected = onePerSatellite(sats, observer, options);
  ASSERT_GT(expected.size(), 500u);
  ASSERT_TRUE(std::any_of(expected.begin(), expected.end(), [](const PlannedPass& p) { return p.visible; }));

  for (const int threads : {1, 2, 3}) {
    const CataloguePlan plan = planAllPasses(sats, observer, kStart, kStart + 1.0, options, threads);
    EXPECT_LT(plan.searched, sats.size());  // the pre-filter left some out
    expectSamePasses(plan, expected, threads);
  }

  // The other model family is searched with its own models.
  const std::vector<Satellite> few(sats.begin(), sats.begin() + 60);
  options.family = ModelFamily::Sgp8Sdp8;
  expectSamePasses(planAllPasses(few, observer, kStart, kStart + 1.0, options, 2), onePerSatellite(few, observer, options),
                   2);
}

TEST(CataloguePasses, PreFilterKeepsEverySatelliteThatRises) {
  Satellite low;  // 10 degrees inclination, about 500 km up
  low.catnr = 1;
  low.epoch = 17102.0;
  low.xincl = 10.0;
  low.eo = 0.001;
  low.xno = 15.2;
  Satellite geostationary = low;
  geostationary.xincl = 0.05;
  geostationary.xno = 1.0027;
  int left = 0;
  for (const Satellite& sat : {low, geostationary}) {
    for (int step = 0; step <= 30; ++step) {
      const double lat = 3.0 * step;
      const Geodetic observer{lat * kDegree, 0.0, 0.0, 0};
      const bool rises = !planPasses(sat, 0, observer, kStart, kStart + 1.0, {}).empty();
      if (rises) {
        EXPECT_TRUE(canRise(sat, observer, 0.0)) << sat.xno << " at " << lat;
      }
      left += canRise(sat, observer, 0.0) ? 0 : 1;
    }
  }
  EXPECT_GT(left, 10);
  Satellite empty;
  EXPECT_FALSE(canRise(empty, Geodetic{}, 0.0));
}

}  // namespace
}  // namespace norvane
