#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"

namespace norvane {
namespace {

constexpr std::uint32_t kWhite = Rgb(255, 255, 255);

std::vector<Point> SetPixels(const DrawingSurface& surface) {
  std::vector<Point> points;
  for (std::int32_t y = 0; y < surface.height; ++y) {
    for (std::int32_t x = 0; x < surface.width; ++x) {
      if (PixelAt(surface, x, y) != 0) points.push_back({x, y});
    }
  }
  return points;
}

TEST(DrawLine, LeavesRowZeroColumnZeroAndTheEndPoint) {
  DrawingSurface surface = MakeOffscreenSurface();
  DrawLine(surface, {0, 0}, {10, 0}, kWhite);  // row 0 is never drawn
  DrawLine(surface, {7, 7}, {7, 7}, kWhite);   // equal ends draw nothing
  EXPECT_TRUE(SetPixels(surface).empty());

  DrawLine(surface, {0, 5}, {10, 5}, kWhite);
  std::vector<Point> expected;
  for (std::int32_t x = 1; x <= 9; ++x) expected.push_back({x, 5});
  EXPECT_EQ(SetPixels(surface), expected);
}

TEST(DrawLine, SteepAndReversedLinesTruncateTowardsTheStart) {
  DrawingSurface surface = MakeOffscreenSurface();
  DrawLine(surface, {10, 10}, {7, 16}, kWhite);  // dx -3, dy 6: x steps by -0.5
  const std::vector<Point> expected = {{10, 10}, {10, 11}, {9, 12}, {9, 13}, {8, 14}, {8, 15}};
  EXPECT_EQ(SetPixels(surface), expected);
}

TEST(DrawLine, FarEndsOnlyDrawTheirVisiblePart) {
  DrawingSurface surface = MakeOffscreenSurface();
  DrawLine(surface, {-1000000000, 100}, {1000000000, 100}, kWhite);
  DrawLine(surface, {INT_MIN, 0}, {INT_MAX, 319}, kWhite);
  DrawLine(surface, {5, 2000000000}, {5, -2000000000}, kWhite);
  const std::vector<Point> points = SetPixels(surface);
  std::size_t onRow = 0;
  for (const Point& p : points) onRow += p.y == 100 ? 1 : 0;
  EXPECT_EQ(onRow, 239u);  // columns 1..239 of row 100
}

TEST(DrawRect, ClosesEveryCorner) {
  DrawingSurface surface = MakeOffscreenSurface();
  DrawRect(surface, 10, 20, 5, 4, kWhite);  // bottom-left (10, 20), top row 15, right column 14
  for (std::int32_t y = 15; y <= 20; ++y) {
    for (std::int32_t x = 10; x <= 14; ++x) {
      const bool edge = x == 10 || x == 14 || y == 15 || y == 20;
      // Each edge leaves out its end; the right edge starts at (14, 20) and the
      // longer top edge reaches (14, 15).
      EXPECT_EQ(PixelAt(surface, x, y) != 0, edge) << x << "," << y;
    }
  }
  EXPECT_EQ(SetPixels(surface).size(), 18u);
}

TEST(FillRect, FillsRowsAboveTheBaseLine) {
  DrawingSurface surface = MakeOffscreenSurface();
  FillRect(surface, 0, 3, 3, 2, kWhite);  // rows 0..2, columns 0..1
  const std::vector<Point> expected = {{0, 0}, {1, 0}, {0, 1}, {1, 1}, {0, 2}, {1, 2}};
  EXPECT_EQ(SetPixels(surface), expected);
}

TEST(FillRect, ColumnsPastTheRightEdgeWrapAndNothingLeavesTheBuffer) {
  DrawingSurface surface = MakeOffscreenSurface();
  FillRect(surface, 238, 11, 1, 4, kWhite);  // row 10, columns 238..241
  const std::vector<Point> expected = {{238, 10}, {239, 10}, {0, 11}, {1, 11}};
  EXPECT_EQ(SetPixels(surface), expected);
  FillRect(surface, -5000, 400, 1000, 100000, kWhite);
  FillRect(surface, 230, 319, INT_MAX, INT_MAX, kWhite);
  EXPECT_EQ(surface.buffer.size(), 240u * 320u);
}

// Any arguments at all stay inside the buffer (checked by the sanitizer
// builds), on a surface scanned from the right as well as on the usual one.
TEST(Primitives, SurviveArbitraryArgumentsOnEitherScanOrder) {
  std::uint32_t seed = 99;
  auto next = [&seed]() {
    seed = seed * 1103515245u + 12345u;
    const std::int32_t small = static_cast<std::int32_t>(seed >> 16) % 700 - 200;
    return (seed & 7u) == 0 ? static_cast<std::int32_t>(seed) : small;
  };
  Image image;
  image.width = 12;
  image.height = 12;
  image.pixels.assign(144, 0x0F0F);
  for (const DisplayProperties properties : {kPortraitDisplay, DisplayProperties{240, 320, -640, 2, 16, 0}}) {
    DrawingSurface surface = MakeOffscreenSurface(properties);
    for (int call = 0; call < 1500; ++call) {
      DrawLine(surface, {next(), next()}, {next(), next()}, kWhite);
      DrawRect(surface, next(), next(), next() % 400, next() % 400, kWhite);
      FillRect(surface, next() % 400, next() % 400, next() % 50, next() % 50, kWhite);
      Point p{next(), next()};
      DrawText(surface, p, "Norvane~", next() % 20, kWhite, (call & 1) != 0, (call & 2) != 0);
      BlitKeyed(surface, next(), next(), next() % 13, next() % 13, image, 0x0F0F, next() % 3, next() % 3);
      Blit(surface, next(), next(), 12, 12, image, 0, 0);
    }
    EXPECT_EQ(surface.buffer.size(), 240u * 320u);
  }
}

}  // namespace
}  // namespace norvane
