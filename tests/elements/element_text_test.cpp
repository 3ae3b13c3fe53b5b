#include "core/elements/element_text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/elements/element_file.h"
#include "tests/common/test_support.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

using test::numberedEntry;

class ElementText : public ::testing::Test {
 protected:
  int load(const std::string& text) { return loadElementText(*catalogue, text); }
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(ElementText, EntriesLoadAndAreSelected) {
  catalogue->selected[5] = 1;
  EXPECT_EQ(load(numberedEntry(1) + numberedEntry(2)), 2);
  EXPECT_EQ(catalogue->satellites[1].catnr, 2);
  EXPECT_EQ(catalogue->selected[0], 1);
  EXPECT_EQ(catalogue->selected[1], 1);
  EXPECT_EQ(catalogue->selected[5], 0);
}

TEST_F(ElementText, EndsAtAMissingLastLineEndAZeroNumberOrALongName) {
  const std::string two = numberedEntry(1) + numberedEntry(2);
  EXPECT_EQ(load(two.substr(0, two.size() - 2)), 1);
  EXPECT_EQ(load(numberedEntry(1) + numberedEntry(0) + numberedEntry(3)), 1);
  // A 25-character name line desynchronises the entries after it.
  EXPECT_LT(load(numberedEntry(1) + test::issEntry("ISS (ZARYA)              X") + numberedEntry(4)), 3);
}

TEST_F(ElementText, BareLineFeedsShiftNothingAndDropCharacters) {
  ASSERT_EQ(load(test::issEntry(test::kIssName, "\n")), 1);
  // Line 1 unshifted and missing its check digit: fraction read one column right.
  EXPECT_DOUBLE_EQ(catalogue->satellites[0].epoch, 8264.01782528);
}

TEST_F(ElementText, At181EntriesTheReadStopsAnd180AreSelected) {
  std::string text;
  for (int i = 1; i <= 200; ++i) text += numberedEntry(i);
  text.resize(kMaxElementFileBytes);
  EXPECT_EQ(load(text), 181);
  EXPECT_EQ(catalogue->satellites[180].catnr, 181);
  EXPECT_EQ(catalogue->selected[179], 1);
}

TEST_F(ElementText, BundledFilesLoadCompletely) {
  testing::RecordingSink sink;
  const std::string path = std::string(NORVANE_DATA_DIR) + "/visual_2017-04-14.txt";
  ASSERT_TRUE(openElementFile(*catalogue, sink, path));
  EXPECT_EQ(catalogue->satelliteCount, 144);
  EXPECT_EQ(sink.shown.back().text, "Data of 144 satellites successfully read from " + path + ".");
  EXPECT_EQ(sink.shown.back().title, "Info.");
  EXPECT_FALSE(openElementFile(*catalogue, sink, path + ".missing"));
  EXPECT_EQ(sink.shown.back().text, "I can't open the file!");
  EXPECT_EQ(catalogue->satelliteCount, 144);  // unchanged by the failed open
}

}  // namespace
}  // namespace norvane
