// One real element file and its OMM CSV and JSON conversions (made by
// tools/tle_to_omm.py) opened the ways a user opens files.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "core/elements/element_file.h"
#include "ui/app/element_file_commands.h"
#include "core/propagation/propagator.h"
#include "omm_fixtures.h"
#include "settings/memory_settings_store.h"
#include "tests/common/test_support.h"

namespace norvane {
namespace {

const std::string kTle = std::string(NORVANE_DATA_DIR) + "/visual_2017-04-14.txt";
const std::string kCsv = std::string(NORVANE_TEST_DIR) + "/omm/visual_2017-04-14.csv";
const std::string kJson = std::string(NORVANE_TEST_DIR) + "/omm/visual_2017-04-14.json";

double distanceKm(const OrbitState& a, const OrbitState& b) {
  return std::hypot(a.positionKm[0] - b.positionKm[0], a.positionKm[1] - b.positionKm[1],
                    a.positionKm[2] - b.positionKm[2]);
}

TEST(OmmFiles, ThreeFormsOfOneFilePropagateToTheSamePlaceForADay) {
  testing::RecordingSink messages;
  auto tle = std::make_unique<Catalogue>();
  ASSERT_TRUE(openElementFile(*tle, messages, kTle));
  ASSERT_EQ(tle->satelliteCount, 144);
  for (const std::string& path : {kCsv, kJson}) {  // the JSON file is larger than element text may be
    auto omm = std::make_unique<Catalogue>();
    ElementLoad load;
    ASSERT_TRUE(openElementFile(*omm, messages, path, &load));
    EXPECT_EQ(messages.texts().back(), "Data of 144 satellites successfully read from " + path + ".");
    ASSERT_EQ(load.count, 144);
    EXPECT_EQ(load.skipped, 0);
    double worstKm = 0;
    for (std::size_t slot = 0; slot < 144; ++slot) {
      const Satellite& a = tle->satellites[slot];
      const Satellite& b = omm->satellites[slot];
      ASSERT_EQ(a.catnr, b.catnr);
      EXPECT_EQ(a.revnum, b.revnum);
      EXPECT_EQ(a.elset, b.elset);
      Propagator pa(a), pb(b);
      for (int minutes = 0; minutes <= 1440; minutes += 20) {
        const double jd = pa.epochJulianDate() + minutes / 1440.0;
        worstKm = std::max(worstKm, distanceKm(pa.stateAt(jd), pb.stateAt(jd)));
      }
    }
    EXPECT_LT(worstKm, 0.001) << path;
  }
}

TEST(OmmFiles, SkippedRecordsAddASecondLineToTheLoadMessages) {
  testing::TempFolder folder;
  testing::RecordingSink messages;
  const std::string path = folder.write(
      "two.csv", test::ommCsv({test::issOmm(), test::with(test::issOmm(), "BSTAR", "x"),
                               test::with(test::issOmm(), "EPOCH", "")}));
  auto catalogue = std::make_unique<Catalogue>();
  ASSERT_TRUE(openElementFile(*catalogue, messages, path));
  EXPECT_EQ(messages.shown.back().text, "Data of 1 satellites successfully read from " + path +
                                            ".\n2 records were skipped: a required field was missing or unreadable.");
  EXPECT_EQ(messages.shown.back().title, "Info.");

  ElementFileState state;
  Settings settings;
  MemorySettingsStore store;
  const std::string one = folder.write("one.json", test::ommJson({test::with(test::issOmm(), "EPOCH", "")}));
  EXPECT_EQ(OpenChosenFile(state, *catalogue, settings, store, messages, one), 0);
  EXPECT_EQ(messages.shown.back().text, "Data of 0 satellites successfully read from " + one +
                                            "\n1 record was skipped: a required field was missing or unreadable.");
  EXPECT_EQ(OpenChosenFile(state, *catalogue, settings, store, messages, kJson), 144);
  EXPECT_EQ(messages.shown.back().text, "Data of 144 satellites successfully read from " + kJson);
}

}  // namespace
}  // namespace norvane
