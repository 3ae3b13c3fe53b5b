#include "core/elements/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace norvane {
namespace {

struct ReadResult {
  std::string line;
  bool more;
};

std::vector<ReadResult> readAll(const std::string& text, std::uint32_t capacity, int maxLines = 10) {
  LineReader reader;
  readLine(reader, nullptr, nullptr, 0, kRewindLength);
  std::vector<ReadResult> out;
  std::vector<char> line(capacity + 1, '#');
  for (int i = 0; i < maxLines; ++i) {
    const bool more = readLine(reader, text.data(), line.data(), capacity, static_cast<std::uint32_t>(text.size()));
    EXPECT_EQ(line[capacity], '#') << "wrote past the line buffer";
    out.push_back({std::string(line.data()), more});
    if (!more) break;
  }
  return out;
}

TEST(LineReader, CrLfLinesAndTheLastLineComesWithFalse) {
  const auto lines = readAll("AB\r\nCD\r\nEF", 80);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].line, "AB");
  EXPECT_TRUE(lines[0].more);
  EXPECT_EQ(lines[1].line, "CD");
  EXPECT_EQ(lines[2].line, "EF");
  EXPECT_FALSE(lines[2].more);  // cursor 12 > length 10
}

TEST(LineReader, TrailingLineEndKeepsTheLastLine) {
  const auto lines = readAll("AB\r\nCD\r\n", 80);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(lines[1].more);  // cursor 8 == length
  EXPECT_EQ(lines[2].line, "");
  EXPECT_FALSE(lines[2].more);
}

TEST(LineReader, BareLineFeedDropsTheByteBeforeIt) {
  const auto lines = readAll("ABC\nDEF\nGHI\n", 80);
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[0].line, "AB");
  EXPECT_EQ(lines[1].line, "DE");
  EXPECT_EQ(lines[2].line, "GH");
}

TEST(LineReader, FullNameBufferShiftsTheNextLineByItsLineFeed) {
  const std::string name(24, 'N');
  LineReader reader;
  const std::string text = name + "\r\n1 LINE\r\n";
  char nameLine[25];
  char line1[80];
  const auto length = static_cast<std::uint32_t>(text.size());
  ASSERT_TRUE(readLine(reader, text.data(), nameLine, 25, length));
  EXPECT_EQ(std::string(nameLine), name);
  EXPECT_EQ(reader.cursor, 25u);  // on the line feed
  ASSERT_TRUE(readLine(reader, text.data(), line1, 80, length));
  EXPECT_EQ(std::string(line1), "\n1 LINE");
}

TEST(LineReader, LongLineIsCutAndTheByteAfterTheCutSkipped) {
  const auto lines = readAll("ABCDEFGH\r\n", 5);
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(lines[0].line, "ABCD");
  EXPECT_EQ(lines[1].line, "FGH");
}

TEST(LineReader, RewindAndHostileBuffersStayInBounds) {
  LineReader reader{77};
  EXPECT_FALSE(readLine(reader, nullptr, nullptr, 0, kRewindLength));
  EXPECT_EQ(reader.cursor, 0u);
  // No line ends, 1000 bytes, zeros and a trailing CR: only the bounds matter here.
  for (const std::string& text : {std::string(1000, 'x'), std::string(7, '\0'), std::string("\r"),
                                  std::string("\n"), std::string("x\r")}) {
    const auto lines = readAll(text, 80, 100);
    EXPECT_FALSE(lines.back().more);
  }
}

}  // namespace
}  // namespace norvane
