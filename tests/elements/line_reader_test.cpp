#include "core/elements/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace norvane {
namespace {

// Each line read with the reader's "more" flag.
using Lines = std::vector<std::pair<std::string, bool>>;

Lines readAll(const std::string& text, std::uint32_t capacity, int maxLines = 10) {
  LineReader reader;
  readLine(reader, nullptr, nullptr, 0, kRewindLength);
  Lines out;
  std::vector<char> line(capacity + 1, '#');
  for (int i = 0; i < maxLines; ++i) {
    const bool more = readLine(reader, text.data(), line.data(), capacity, static_cast<std::uint32_t>(text.size()));
    EXPECT_EQ(line[capacity], '#') << "wrote past the line buffer";
    out.emplace_back(line.data(), more);
    if (!more) break;
  }
  return out;
}

TEST(LineReader, LineEndsAndCuts) {
  // The last line comes with false once the cursor passes the length (12 > 10);
  // a cursor equal to the length (8) still reads one more, empty line.
  EXPECT_EQ(readAll("AB\r\nCD\r\nEF", 80), (Lines{{"AB", true}, {"CD", true}, {"EF", false}}));
  EXPECT_EQ(readAll("AB\r\nCD\r\n", 80), (Lines{{"AB", true}, {"CD", true}, {"", false}}));
  // A bare line feed drops the byte before it.
  EXPECT_EQ(readAll("ABC\nDEF\nGHI\n", 80), (Lines{{"AB", true}, {"DE", true}, {"GH", true}, {"", false}}));
  // A long line is cut and the byte after the cut skipped.
  EXPECT_EQ(readAll("ABCDEFGH\r\n", 5), (Lines{{"ABCD", true}, {"FGH", true}, {"", false}}));
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

TEST(LineReader, RewindAndHostileBuffersStayInBounds) {
  LineReader reader{77};
  EXPECT_FALSE(readLine(reader, nullptr, nullptr, 0, kRewindLength));
  EXPECT_EQ(reader.cursor, 0u);
  // No line ends, 1000 bytes, zeros and a trailing CR: only the bounds matter here.
  for (const std::string& text : {std::string(1000, 'x'), std::string(7, '\0'), std::string("\r"),
                                  std::string("\n"), std::string("x\r")}) {
    EXPECT_FALSE(readAll(text, 80, 100).back().second);
  }
}

}  // namespace
}  // namespace norvane
