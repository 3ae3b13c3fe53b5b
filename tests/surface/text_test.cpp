#include <gtest/gtest.h>

#include "ui/surface/color.h"
#include "ui/surface/font.h"
#include "ui/surface/text.h"

namespace norvane {
namespace {

constexpr std::uint32_t kWhite = Rgb(255, 255, 255);

// Bounding box of the set pixels.
struct Box {
  std::int32_t left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;
};

Box BoxOf(const DrawingSurface& surface) {
  Box box;
  for (std::int32_t y = 0; y < surface.height; ++y) {
    for (std::int32_t x = 0; x < surface.width; ++x) {
      if (PixelAt(surface, x, y) == 0) continue;
      box.left = std::min(box.left, x);
      box.right = std::max(box.right, x);
      box.top = std::min(box.top, y);
      box.bottom = std::max(box.bottom, y);
    }
  }
  return box;
}

bool Cell(char c, int column, int row) { return GlyphOf(static_cast<unsigned char>(c))[row * 6 + column] != 0; }

TEST(Font, GlyphsLeaveTheirGapAndTildeIsADegreeSign) {
  int inkInColumn5 = 0;
  int inkInRow7 = 0;
  for (int g = 0; g < kFontGlyphCount; ++g) {
    for (int r = 0; r < kGlyphRows; ++r) inkInColumn5 += kFontGlyphs[g][r * 6 + 5];
    for (int c = 0; c < kGlyphColumns; ++c) inkInRow7 += kFontGlyphs[g][7 * 6 + c] != 0 ? 1 : 0;
  }
  EXPECT_EQ(inkInColumn5, 0);
  EXPECT_LT(inkInRow7, 20);  // only descenders and the underscore reach the last row
  // Degree sign: a small raised ring with an empty middle, nothing below row 4.
  EXPECT_TRUE(Cell('~', 2, 1) && Cell('~', 1, 2) && Cell('~', 3, 2) && Cell('~', 2, 3));
  EXPECT_FALSE(Cell('~', 2, 2));
  for (int r = 4; r < kGlyphRows; ++r) {
    for (int c = 0; c < kGlyphColumns; ++c) EXPECT_FALSE(Cell('~', c, r));
  }
  EXPECT_EQ(GlyphOf(200), GlyphOf(' '));
  EXPECT_EQ(GlyphOf('\t'), GlyphOf(' '));
}

TEST(DrawText, CentredFiveCharactersStartAt105By156) {
  DrawingSurface surface = MakeOffscreenSurface();
  Point point{120, 160};
  DrawText(surface, point, "HHHHH", 5, kWhite, false, true);
  EXPECT_EQ(point, (Point{105, 156}));
  const Box box = BoxOf(surface);
  EXPECT_EQ(box.left, 105);             // 'H' has ink in its first column
  EXPECT_EQ(box.right, 105 + 24 + 3);   // fifth glyph, columns 0..3 inked
  EXPECT_EQ(box.top, 156 + 1);          // row 0 of 'H' is blank in this font
}

TEST(DrawText, VerticalTextReadsDownwardWithGlyphTopsToTheRight) {
  DrawingSurface surface = MakeOffscreenSurface();
  Point point{50, 100};
  DrawText(surface, point, "|", 1, kWhite, true, false);
  // '|' is column 2, rows 1..6: it becomes row 102, columns 49 down to 44.
  for (std::int32_t x = 44; x <= 49; ++x) EXPECT_NE(PixelAt(surface, x, 102), 0) << x;
  EXPECT_EQ(BoxOf(surface).bottom, 102);

  Point centred{50, 100};
  DrawText(surface, centred, "ab", 2, kWhite, true, true);
  EXPECT_EQ(centred, (Point{46, 94}));
}

TEST(DrawText, ClipsAtTheScreenEdgesAndStopsAtTheTextsEnd) {
  DrawingSurface surface = MakeOffscreenSurface();
  Point origin{0, 0};
  DrawText(surface, origin, "M", 1, kWhite, false, false);  // column 0 and row 0 stay blank
  Box box = BoxOf(surface);
  EXPECT_GE(box.left, 1);
  EXPECT_GE(box.top, 1);

  DrawingSurface other = MakeOffscreenSurface();
  Point point{230, 310};
  DrawText(other, point, "W", 1 << 30, kWhite, false, false);  // nothing past 'W' is inked
  box = BoxOf(other);
  EXPECT_LE(box.right, 234);
}

}  // namespace
}  // namespace norvane
