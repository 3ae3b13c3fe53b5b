#include <gtest/gtest.h>

#include "ui/surface/blit.h"

namespace norvane {
namespace {

// A side x side image whose pixel (x, y) is 100 * y + x + 1, with the key in
// its top-left pixel.
Image Numbered(std::int32_t side, std::uint16_t key) {
  Image image;
  image.width = side;
  image.height = side;
  for (std::int32_t y = 0; y < side; ++y) {
    for (std::int32_t x = 0; x < side; ++x) image.pixels.push_back(static_cast<std::uint16_t>(100 * y + x + 1));
  }
  image.pixels[0] = key;
  return image;
}

int CountSet(const DrawingSurface& surface) {
  int count = 0;
  for (const std::uint16_t p : surface.buffer) count += p != 0 ? 1 : 0;
  return count;
}

TEST(BlitKeyed, AtMinusSixDrawsTheLowerRightQuarterAtTheOrigin) {
  DrawingSurface surface = MakeOffscreenSurface();
  const std::uint16_t key = 0xF9D8;
  Image image = Numbered(12, key);
  image.pixels[7 * 12 + 7] = key;  // a keyed pixel inside the drawn quarter
  ASSERT_EQ(BlitKeyed(surface, -6, -6, 12, 12, image, key, 0, 0), 1);
  EXPECT_EQ(PixelAt(surface, 0, 0), 100 * 6 + 6 + 1);
  EXPECT_EQ(PixelAt(surface, 5, 5), 100 * 11 + 11 + 1);
  EXPECT_EQ(PixelAt(surface, 1, 1), 0);  // left out by the key
  EXPECT_EQ(CountSet(surface), 35);
}

TEST(Blit, CopiesEveryPixelAndClipsAtTheFarEdges) {
  DrawingSurface surface = MakeOffscreenSurface();
  const Image image = Numbered(12, 0xF9D8);
  ASSERT_EQ(Blit(surface, 234, 316, 12, 12, image, 0, 0), 1);
  EXPECT_EQ(PixelAt(surface, 234, 316), 0xF9D8);  // no key: copied too
  EXPECT_EQ(PixelAt(surface, 239, 319), 100 * 3 + 5 + 1);
  EXPECT_EQ(CountSet(surface), 6 * 4);
}

TEST(Blit, RefusesBadRequestsAndSkipsBlocksPastTheEdge) {
  DrawingSurface surface = MakeOffscreenSurface();
  const Image image = Numbered(7, 0);
  EXPECT_EQ(Blit(surface, 0, 0, 0, 7, image, 0, 0), 0);
  EXPECT_EQ(Blit(surface, 0, 0, 7, -1, image, 0, 0), 0);
  EXPECT_EQ(Blit(surface, 0, 0, 7, 7, image, -1, 0), 0);
  EXPECT_EQ(Blit(surface, 0, 0, 7, 7, image, 1, 0), 0);  // source block leaves the image
  EXPECT_EQ(Blit(surface, 0, 0, 1, 1, Image{}, 0, 0), 0);  // an empty skin draws nothing
  EXPECT_EQ(Blit(surface, 241, 0, 7, 7, image, 0, 0), 1);
  EXPECT_EQ(Blit(surface, 240, 320, 7, 7, image, 0, 0), 1);
  EXPECT_EQ(Blit(surface, -100, -100, 7, 7, image, 0, 0), 1);
  EXPECT_EQ(Blit(surface, -7, 5, 7, 7, image, 0, 0), 1);  // clipped away on one axis only
  EXPECT_EQ(Blit(surface, 5, -7, 7, 7, image, 0, 0), 1);
  Image broken = image;
  broken.pixels.pop_back();
  EXPECT_EQ(Blit(surface, 0, 0, 7, 7, broken, 0, 0), 0);
  EXPECT_EQ(CountSet(surface), 0);
  surface.bitsPerPixel = 8;
  EXPECT_EQ(Blit(surface, 0, 0, 7, 7, image, 0, 0), 0);
  EXPECT_EQ(Blit(surface, 300, 0, 7, 7, image, 0, 0), 1);  // the edge test comes first
}

TEST(BlitMasked, CopiesWhereTheMaskIsSet) {
  DrawingSurface surface = MakeOffscreenSurface();
  const Image image = Numbered(3, 50);
  Image mask = image;
  mask.pixels = {0, 1, 0, 1, 1, 1, 0, 1, 0};
  ASSERT_EQ(BlitMasked(surface, 10, 10, 3, 3, image, mask, 0, 0), 1);
  EXPECT_EQ(CountSet(surface), 5);
  EXPECT_EQ(PixelAt(surface, 11, 11), 100 + 1 + 1);
  EXPECT_EQ(PixelAt(surface, 10, 10), 0);
  Image smaller = Numbered(2, 1);
  EXPECT_EQ(BlitMasked(surface, 10, 10, 2, 2, image, smaller, 0, 0), 0);
}

}  // namespace
}  // namespace norvane
