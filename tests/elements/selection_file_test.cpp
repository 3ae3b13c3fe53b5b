#include "core/elements/selection_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "core/elements/file_name_modes.h"
#include "tests/common/test_support.h"

namespace norvane {
namespace {

using testing::ReadFile;

class SelectionFile : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  testing::RecordingSink sink;
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(SelectionFile, RoundTripIs720LittleEndianBytes) {
  const std::string path = selectionFilePath(folder.path, sink);
  catalogue->selected[0] = 1;
  catalogue->selected[179] = 0x01020304;
  ASSERT_TRUE(writeSelectionFile(path, *catalogue));
  const std::string bytes = ReadFile(path);
  ASSERT_EQ(bytes.size(), 720u);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x01\0\0\0", 4));
  EXPECT_EQ(bytes.substr(716), "\x04\x03\x02\x01");
  auto other = std::make_unique<Catalogue>();
  ASSERT_TRUE(readSelectionFile(path, *other));
  EXPECT_EQ(other->selected, catalogue->selected);
}

TEST_F(SelectionFile, MissingFileChangesNothingAndNoFolderIsReported) {
  catalogue->selected[3] = 1;
  EXPECT_FALSE(readSelectionFile(folder / "Select.bol", *catalogue));
  EXPECT_EQ(catalogue->selected[3], 1);
  EXPECT_EQ(selectionFilePath("", sink), "");
  EXPECT_EQ(sink.texts(), std::vector<std::string>{"Incorrect Norvane pragram path!"});
}

TEST_F(SelectionFile, FailedWriteKeepsThePreviousFileWhole) {
  const std::string path = folder / "Select.bol";
  catalogue->selected[7] = 1;
  ASSERT_TRUE(writeSelectionFile(path, *catalogue));
  ASSERT_EQ(chmod(folder.path.c_str(), 0500), 0);  // root may still write here
  catalogue->selected[7] = 0;
  const bool written = writeSelectionFile(path, *catalogue);
  chmod(folder.path.c_str(), 0700);
  if (geteuid() != 0) {
    EXPECT_FALSE(written);
  }
  auto back = std::make_unique<Catalogue>();
  ASSERT_TRUE(readSelectionFile(path, *back));
  EXPECT_EQ(back->selected[7], written ? 0 : 1);
  EXPECT_EQ(ReadFile(path).size(), 720u);
  EXPECT_FALSE(writeSelectionFile(folder / "no/such/dir/Select.bol", *catalogue));
}

TEST(FileNameModes, IridiumAndGpsNames) {
  EXPECT_TRUE(isIridiumFileName("/x/iridium.txt", IridiumMatch::LowerCaseOnly));
  EXPECT_FALSE(isIridiumFileName("/x/Iridium.txt", IridiumMatch::LowerCaseOnly));
  EXPECT_TRUE(isIridiumFileName("/x/Iridium.txt", IridiumMatch::EitherCaseFirstLetter));
  EXPECT_FALSE(isIridiumFileName("/x/IRIDIUM.txt", IridiumMatch::EitherCaseFirstLetter));
  EXPECT_FALSE(isIridiumFileName("/iridium/visual.txt", IridiumMatch::EitherCaseFirstLetter));
  EXPECT_EQ(frequenciesForFile("/d/gps-ops.txt").downlink, 1227.6);
  EXPECT_EQ(frequenciesForFile("/d/gps-ops.txt").uplink, 1575.42);
  EXPECT_EQ(frequenciesForFile("/d/GPS-ops.txt").downlink, 130.0);
  EXPECT_EQ(frequenciesForFile("gps").uplink, 1575.42);
}

}  // namespace
}  // namespace norvane
