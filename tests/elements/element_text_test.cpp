#include "core/elements/element_text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "core/elements/element_file.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

// The entry with its catalogue number replaced, so entries can be told apart.
std::string entry(int catnr, const char* eol = "\r\n") {
  char number[8];
  std::snprintf(number, sizeof number, "%05d", catnr);
  std::string line1 = test::kIssLine1;
  std::string line2 = test::kIssLine2;
  line1.replace(2, 5, number);
  line2.replace(2, 5, number);
  return test::kIssName + eol + line1 + eol + line2 + eol;
}

class ElementText : public ::testing::Test {
 protected:
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(ElementText, EntriesLoadAndAreSelected) {
  catalogue->selected[5] = 1;
  EXPECT_EQ(loadElementText(*catalogue, entry(1) + entry(2)), 2);
  EXPECT_EQ(catalogue->satellites[1].catnr, 2);
  EXPECT_EQ(catalogue->selected[0], 1);
  EXPECT_EQ(catalogue->selected[1], 1);
  EXPECT_EQ(catalogue->selected[5], 0);
}

TEST_F(ElementText, LastEntryWithoutLineEndIsLost) {
  std::string text = entry(1) + entry(2);
  text.resize(text.size() - 2);
  EXPECT_EQ(loadElementText(*catalogue, text), 1);
}

TEST_F(ElementText, ZeroCatalogueNumberEndsTheRead) {
  EXPECT_EQ(loadElementText(*catalogue, entry(1) + entry(0) + entry(3)), 1);
}

TEST_F(ElementText, TwentyFiveCharacterNameDesynchronises) {
  const std::string text = entry(1) + "ISS (ZARYA)              X\r\n" +
                           test::kIssLine1 + "\r\n" + test::kIssLine2 + "\r\n" + entry(4);
  EXPECT_LT(loadElementText(*catalogue, text), 3);
}

TEST_F(ElementText, BareLineFeedsShiftNothingAndDropCharacters) {
  ASSERT_EQ(loadElementText(*catalogue, test::issEntry(test::kIssName, "\n")), 1);
  // Line 1 unshifted and missing its check digit: fraction read one column right.
  EXPECT_DOUBLE_EQ(catalogue->satellites[0].epoch, 8264.01782528);
}

TEST_F(ElementText, At181EntriesTheReadStopsAnd180AreSelected) {
  std::string text;
  for (int i = 1; i <= 200; ++i) text += entry(i);
  text.resize(kMaxElementFileBytes);
  EXPECT_EQ(loadElementText(*catalogue, text), 181);
  EXPECT_EQ(catalogue->satellites[180].catnr, 181);
  EXPECT_EQ(catalogue->selected[179], 1);
}

TEST_F(ElementText, BundledFilesLoadCompletely) {
  struct Sink : MessageSink {
    std::string text, title;
    void show(const std::string& t, const std::string& ti, MessageIcon) override { text = t, title = ti; }
  } sink;
  const std::string path = std::string(NORVANE_DATA_DIR) + "/visual_2017-04-14.txt";
  ASSERT_TRUE(openElementFile(*catalogue, sink, path));
  EXPECT_EQ(catalogue->satelliteCount, 144);
  EXPECT_EQ(sink.text, "Data of 144 satellites successfully read from " + path + ".");
  EXPECT_EQ(sink.title, "Info.");
  EXPECT_FALSE(openElementFile(*catalogue, sink, path + ".missing"));
  EXPECT_EQ(sink.text, "I can't open the file!");
  EXPECT_EQ(catalogue->satelliteCount, 144);  // unchanged by the failed open
}

}  // namespace
}  // namespace norvane
