#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "analysis_fixtures.h"
#include "core/analysis/pass_filters.h"
#include "core/analysis/pass_search.h"

namespace norvane {
namespace {

struct CountingProgress : PassSearchProgress {
  void begin(int count) override { total = count; }
  void satelliteStep() override { ++satellites; }
  void timeReset() override { ++searches; }
  void timeStep() override { ++timeSteps; }
  int total = 0, satellites = 0, searches = 0, timeSteps = 0;
};

class PassSearch : public ::testing::Test {
 protected:
  void run(Catalogue& catalogue, PassSearchOptions options) {
    SearchPasses(catalogue, observer, cache, *models, options, store, &progress);
  }
  Geodetic observer{51.5 * 0.017453292519943295, 0.0, 0.05, 0};
  LookAngleCache cache;
  std::unique_ptr<ModelState> models = std::make_unique<ModelState>();
  PredictionStore store;
  CountingProgress progress;
};

TEST_F(PassSearch, ZeroHoursEvaluatesEachSatelliteOnce) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  run(*catalogue, {test::kVisualEpoch, 0, false, false, 20, 0});
  std::map<int, int> perSatellite;
  for (const PredictionRow& row : store.rows) {
    EXPECT_EQ(++perSatellite[row.satellite], 1);
    // One step: a minute when the satellite was up at the start, else two.
    const double minutes = (row.time - test::kVisualEpoch) * 1440;
    EXPECT_TRUE(std::abs(minutes - 1) < 1e-5 || std::abs(minutes - 2) < 1e-5) << minutes;
  }
  EXPECT_GT(store.rows.size(), 0u);
  EXPECT_EQ(progress.total, catalogue->satelliteCount);
  EXPECT_EQ(progress.satellites, catalogue->satelliteCount);
  EXPECT_LE(progress.timeSteps, 10 * progress.searches);
}

TEST_F(PassSearch, RowLimitAndMinuteRowsAboveTheHorizon) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  run(*catalogue, {test::kVisualEpoch, 24, false, false, 20, 0});
  ASSERT_EQ(store.rows.size(), 301u);  // the 302nd is never added
  for (std::size_t i = 1; i < store.rows.size(); ++i) {
    const PredictionRow& a = store.rows[i - 1];
    const PredictionRow& b = store.rows[i];
    EXPECT_GE(b.state, 1);
    EXPECT_LE(b.state, 4);
    if (a.satellite == b.satellite) {
      EXPECT_GE(b.time - a.time, 1.0 / 1440 - 1e-9);
    } else {
      EXPECT_LT(a.satellite, b.satellite);
    }
  }
  EXPECT_GT(store.passes, 0);
}

TEST_F(PassSearch, VisibleOnlyKeepsBrightVisibleRows) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  catalogue->selected.fill(0);
  catalogue->selected[test::kIssSlot] = 1;
  run(*catalogue, {test::kVisualEpoch, 48, false, true, 0, 0});
  ASSERT_GT(store.rows.size(), 0u);
  for (const PredictionRow& row : store.rows) {
    EXPECT_EQ(row.state, 4);
    EXPECT_LT(row.magnitude, 0.0);
    EXPECT_EQ(row.satellite, test::kIssSlot);
  }
  EXPECT_EQ(progress.searches, 1);
}

TEST_F(PassSearch, FlaresAreRecordedJustAfterTheirPeak) {
  auto catalogue = test::bundled("iridium_2014-06-21.txt");
  run(*catalogue, {2456829.5, 24, true, false, 20, 0});
  ASSERT_GT(store.rows.size(), 3u);
  std::map<int, double> last;
  for (const PredictionRow& row : store.rows) {
    EXPECT_EQ(row.state, 5);
    EXPECT_LT(row.flareAngle, 0.08726646259971649);
    EXPECT_LT(row.magnitude, 100.0);
    EXPECT_FALSE(IsExcludedFromFlareSearch(catalogue->satellites[row.satellite].catnr));
    if (last.count(row.satellite)) {
      EXPECT_GE(row.time - last[row.satellite], 10.0 / 1440 - 2e-5);
    }
    last[row.satellite] = row.time;
  }
}

TEST(PassFilters, GeostationaryCanRiseAndExclusions) {
  Satellite sat;
  sat.xno = 1.0027 + 8e-5;
  EXPECT_TRUE(IsGeostationary(sat));
  sat.xno = 1.0027 - 1e-4;
  EXPECT_FALSE(IsGeostationary(sat));
  sat.xincl = 0.05;  // a geostationary orbit rises up to about 81 degrees latitude
  EXPECT_TRUE(CanRise(sat, 80 * 0.017453292519943295));
  EXPECT_FALSE(CanRise(sat, 82 * 0.017453292519943295));
  sat.xno = 15.5;
  sat.xincl = 98.0;  // folded to 82 degrees
  EXPECT_TRUE(CanRise(sat, -1.5));
  sat.xincl = 30.0;
  EXPECT_FALSE(CanRise(sat, 60 * 0.017453292519943295));
  sat.xno = 0;
  EXPECT_FALSE(CanRise(sat, 0));
  EXPECT_TRUE(IsExcludedFromFlareSearch(25527));
  EXPECT_FALSE(IsExcludedFromFlareSearch(25528));
}

TEST(PredictionTexts, RowsResultAndStart) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const PredictionRow flare{2457858.0, 106, 5, -1.25, 0.0123};
  const PredictionRowTexts fresh = FormatPredictionRow(flare, *catalogue, 2.0 / 24, true);
  EXPECT_EQ(fresh.sat, "ISS (ZARYA)               ");  // 24-character name and two blanks
  EXPECT_EQ(fresh.time, "2017-4-14 14:00:00");
  EXPECT_EQ(fresh.status, "Flare");
  EXPECT_EQ(fresh.magnitude, "-1.2");
  EXPECT_EQ(fresh.flareAngle, "0.70 deg");
  EXPECT_EQ(fresh.nrInFile, "106");
  EXPECT_EQ(FormatPredictionRow(flare, *catalogue, 0, false).sat, "ISS (ZARYA)             ");
  const PredictionRowTexts inSun = FormatPredictionRow({2457858.25, 3, 3, -20.0, 0.01}, *catalogue, 0, true);
  EXPECT_EQ(inSun.magnitude, "N/A");
  EXPECT_EQ(inSun.flareAngle, "N/A");
  EXPECT_EQ(inSun.time, "2017-4-14 18:00:00");

  PredictionStore store;
  store.passes = 3;
  store.seconds = 0.5;
  EXPECT_EQ(SearchResultText(store), "Number of passes 3 calculated in 0.50s");
  store.rows.resize(4);
  EXPECT_EQ(StoredRowOfListRow(store, 0), 3);
  EXPECT_DOUBLE_EQ(PredictionStart(2017, 4, 14, 14, 0, 0, 2.0 / 24), 2457858.0);
  EXPECT_EQ(PredictionHours(24, 23), 24);
  EXPECT_EQ(PredictionHours(24, -1), 1);
}

}  // namespace
}  // namespace norvane
