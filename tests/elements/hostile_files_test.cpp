// Element files and selection files as users may hand them over: empty,
// truncated, binary, oversized, or not a file at all.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "core/elements/element_file.h"
#include "core/elements/selection_file.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

struct Messages : MessageSink {
  std::vector<std::string> texts;
  void show(const std::string& text, const std::string&, MessageIcon) override { texts.push_back(text); }
};

class HostileFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/norvane-hostile-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    folder = pattern;
  }
  void TearDown() override { std::system(("rm -rf " + folder).c_str()); }
  std::string write(const std::string& name, const std::string& bytes) {
    const std::string path = folder + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  static std::string randomBytes(std::size_t size) {
    std::mt19937 random(1234);
    std::string bytes(size, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
  }
  std::string folder;
  Messages messages;
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(HostileFiles, ElementFilesOfAnyShapeLoadWhatTheyHold) {
  ASSERT_TRUE(openElementFile(*catalogue, messages, write("empty.txt", "")));
  EXPECT_EQ(catalogue->satelliteCount, 0);
  EXPECT_EQ(messages.texts.back(), "Data of 0 satellites successfully read from " + folder + "/empty.txt.");

  const std::string entry = test::issEntry();
  ASSERT_TRUE(openElementFile(*catalogue, messages, write("cut.txt", entry + entry.substr(0, 100))));
  EXPECT_EQ(catalogue->satelliteCount, 1);

  ASSERT_TRUE(openElementFile(*catalogue, messages, write("binary.txt", randomBytes(40000))));
  EXPECT_LE(catalogue->satelliteCount, 181);

  std::string huge;
  while (huge.size() < 200000) huge += entry;
  ASSERT_TRUE(openElementFile(*catalogue, messages, write("huge.txt", huge)));
  EXPECT_EQ(catalogue->satelliteCount, 181);  // 33301 bytes hold 198 entries
}

TEST_F(HostileFiles, AFolderInsteadOfAFileReportsTheFailedRead) {
  messages.texts.clear();
  ASSERT_TRUE(openElementFile(*catalogue, messages, folder));
  ASSERT_EQ(messages.texts.size(), 2u);
  EXPECT_EQ(messages.texts[0], "Read failed!");
  EXPECT_EQ(catalogue->satelliteCount, 0);
}

TEST_F(HostileFiles, SelectionFilesShortLongOrBinaryFillOnlyWhatTheyHold) {
  catalogue->selected.fill(7);
  ASSERT_TRUE(readSelectionFile(write("empty.bol", ""), *catalogue));
  EXPECT_EQ(catalogue->selected[0], 7);

  ASSERT_TRUE(readSelectionFile(write("short.bol", std::string("\1\0\0\0\0\0\0\0\1\0", 10)), *catalogue));
  EXPECT_EQ(catalogue->selected[0], 1);
  EXPECT_EQ(catalogue->selected[1], 0);
  EXPECT_EQ(catalogue->selected[2], 7);  // a partial third flag is not read

  std::string longFile(720, '\0');
  longFile += randomBytes(5000);
  ASSERT_TRUE(readSelectionFile(write("long.bol", longFile), *catalogue));
  EXPECT_EQ(catalogue->selected[179], 0);

  ASSERT_TRUE(readSelectionFile(write("binary.bol", randomBytes(720)), *catalogue));
  ASSERT_FALSE(readSelectionFile(folder + "/missing.bol", *catalogue));
}

}  // namespace
}  // namespace norvane
