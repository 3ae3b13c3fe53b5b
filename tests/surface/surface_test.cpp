#include <gtest/gtest.h>

#include "ui/surface/color.h"
#include "ui/surface/drawing_surface.h"

namespace norvane {
namespace {

TEST(ColorOf, KeepsTheTopBitsOfEachChannel) {
  const DrawingSurface surface = MakeOffscreenSurface();
  EXPECT_EQ(ColorOf(surface, Rgb(7, 3, 7)), 0);  // low bits dropped, not rounded
  EXPECT_EQ(ColorOf(surface, Rgb(8, 4, 8)), (1 << 11) | (1 << 5) | 1);
  EXPECT_EQ(ColorOf(surface, kTransparencyKey), (249 >> 3) << 11 | (57 >> 2) << 5 | 198 >> 3);

  DrawingSurface eightBit;
  SetSurfaceProperties(eightBit, {240, 320, 1, 240, 8, 0});
  EXPECT_EQ(ColorOf(eightBit, Rgb(255, 255, 255)), 0);
}

TEST(DrawingSurface, OffsetsCoverEveryPixelWhateverTheStepSigns) {
  // A landscape panel scanned from the right-hand side: negative x step.
  DrawingSurface surface;
  SetSurfaceProperties(surface, {240, 320, -640, 2, 16, 0});
  EXPECT_EQ(surface.xStep, -320);
  EXPECT_EQ(surface.lowestOffset, -320 * 239);
  EXPECT_EQ(surface.highestOffset, 319);
  ASSERT_TRUE(AllocateSurface(surface));
  EXPECT_EQ(surface.buffer.size(), 240u * 320u);
  EXPECT_EQ(PutPixel(surface, 239, 0, 7), 1);
  EXPECT_EQ(surface.buffer.front(), 7);  // the lowest offset opens the buffer
  EXPECT_EQ(PutPixel(surface, 0, 319, 9), 1);
  EXPECT_EQ(surface.buffer.back(), 9);
}

TEST(PutPixel, RefusesOffScreenAndWrongFormats) {
  DrawingSurface surface = MakeOffscreenSurface();
  EXPECT_EQ(PutPixel(surface, 239, 319, 1), 1);
  EXPECT_EQ(PutPixel(surface, 240, 0, 1), 0);
  EXPECT_EQ(PutPixel(surface, 0, 320, 1), 0);
  EXPECT_EQ(PutPixel(surface, -1, 5, 1), 0);  // taken unsigned: far past the width
  surface.bitsPerPixel = 8;
  EXPECT_EQ(PutPixel(surface, 1, 1, 1), 0);
}

class RecordingDisplay : public Display {
 public:
  DisplayProperties properties() const override { return kPortraitDisplay; }
  void present(const Frame& frame) override {
    ++frames;
    last = frame;
  }
  int frames = 0;
  Frame last;
};

TEST(Present, HandsTheWholeBufferOverOnce) {
  DrawingSurface surface = MakeOffscreenSurface();
  PutPixel(surface, 3, 2, 0x1234);
  RecordingDisplay display;
  Present(surface, display);
  ASSERT_EQ(display.frames, 1);
  EXPECT_EQ(display.last.count, 240 * 320);
  const Frame& f = display.last;
  EXPECT_EQ(f.pixels[f.origin + 3 * f.xStep + 2 * f.yStep], 0x1234);

  DrawingSurface unallocated;
  Present(unallocated, display);
  EXPECT_EQ(display.frames, 1);
}

}  // namespace
}  // namespace norvane
