// Element files and selection files as users may hand them over: empty,
// truncated, binary, oversized, or not a file at all.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "core/elements/element_file.h"
#include "core/elements/selection_file.h"
#include "tests/common/test_support.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

std::string randomBytes(std::size_t size) {
  std::mt19937 random(1234);
  std::string bytes(size, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

class HostileFiles : public ::testing::Test {
 protected:
  bool open(const std::string& path) { return openElementFile(*catalogue, messages, path); }
  testing::TempFolder folder;
  testing::RecordingSink messages;
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(HostileFiles, ElementFilesOfAnyShapeLoadWhatTheyHold) {
  ASSERT_TRUE(open(folder.write("empty.txt", "")));
  EXPECT_EQ(catalogue->satelliteCount, 0);
  EXPECT_EQ(messages.texts().back(), "Data of 0 satellites successfully read from " + folder / "empty.txt.");

  const std::string entry = test::issEntry();
  ASSERT_TRUE(open(folder.write("cut.txt", entry + entry.substr(0, 100))));
  EXPECT_EQ(catalogue->satelliteCount, 1);

  ASSERT_TRUE(open(folder.write("binary.txt", randomBytes(40000))));
  EXPECT_LE(catalogue->satelliteCount, 181);

  std::string huge;
  while (huge.size() < 200000) huge += entry;
  ASSERT_TRUE(open(folder.write("huge.txt", huge)));
  EXPECT_EQ(catalogue->satelliteCount, 181);  // 33301 bytes hold 198 entries

  messages.shown.clear();
  ASSERT_TRUE(open(folder.path));  // a folder instead of a file
  ASSERT_EQ(messages.shown.size(), 2u);
  EXPECT_EQ(messages.shown[0].text, "Read failed!");
  EXPECT_EQ(catalogue->satelliteCount, 0);
}

TEST_F(HostileFiles, SelectionFilesShortLongOrBinaryFillOnlyWhatTheyHold) {
  catalogue->selected.fill(7);
  ASSERT_TRUE(readSelectionFile(folder.write("empty.bol", ""), *catalogue));
  EXPECT_EQ(catalogue->selected[0], 7);

  ASSERT_TRUE(readSelectionFile(folder.write("short.bol", std::string("\1\0\0\0\0\0\0\0\1\0", 10)), *catalogue));
  EXPECT_EQ(catalogue->selected[0], 1);
  EXPECT_EQ(catalogue->selected[1], 0);
  EXPECT_EQ(catalogue->selected[2], 7);  // a partial third flag is not read

  ASSERT_TRUE(readSelectionFile(folder.write("long.bol", std::string(720, '\0') + randomBytes(5000)), *catalogue));
  EXPECT_EQ(catalogue->selected[179], 0);

  ASSERT_TRUE(readSelectionFile(folder.write("binary.bol", randomBytes(720)), *catalogue));
  ASSERT_FALSE(readSelectionFile(folder / "missing.bol", *catalogue));
}

}  // namespace
}  // namespace norvane
