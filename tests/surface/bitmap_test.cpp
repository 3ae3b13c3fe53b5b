#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ui/surface/bitmap_reader.h"
#include "ui/surface/color.h"
#include "tests/common/test_support.h"
#include "ui/surface/skins.h"

namespace norvane {
namespace {

void Put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// A 24-bit BMP whose pixel (x, y), y = 0 the top row, is colour(x, y).
template <typename Colour>
std::vector<std::uint8_t> MakeBmp(std::int32_t width, std::int32_t height, bool topDown, Colour colour) {
  const std::uint32_t stride = (static_cast<std::uint32_t>(width) * 3 + 3) / 4 * 4;
  std::vector<std::uint8_t> out = {'B', 'M'};
  Put(out, 54 + stride * static_cast<std::uint32_t>(height), 4);
  Put(out, 0, 4);
  Put(out, 54, 4);
  Put(out, 40, 4);
  Put(out, static_cast<std::uint32_t>(width), 4);
  Put(out, static_cast<std::uint32_t>(topDown ? -height : height), 4);
  Put(out, 1, 2);
  Put(out, 24, 2);
  for (int i = 0; i < 6; ++i) Put(out, i == 2 || i == 3 ? 3780 : 0, 4);
  for (std::int32_t stored = 0; stored < height; ++stored) {
    const std::int32_t y = topDown ? stored : height - 1 - stored;
    for (std::int32_t x = 0; x < width; ++x) Put(out, colour(x, y) >> 16 | (colour(x, y) & 0xFF00) | (colour(x, y) & 0xFF) << 16, 3);
    for (std::uint32_t pad = static_cast<std::uint32_t>(width) * 3; pad < stride; ++pad) out.push_back(0xEE);
  }
  return out;
}

std::uint32_t Pattern(std::int32_t x, std::int32_t y) { return Rgb(static_cast<std::uint32_t>(8 * x), static_cast<std::uint32_t>(40 * y), 200); }

TEST(DecodeBitmap, AWidthOfSixComesOutUnsheared) {
  const DrawingSurface surface = MakeOffscreenSurface();
  for (const bool topDown : {false, true}) {
    Image image;
    ASSERT_TRUE(DecodeBitmap(MakeBmp(6, 5, topDown, Pattern), surface, image));
    ASSERT_EQ(image.width, 6);
    ASSERT_EQ(image.height, 5);
    for (std::int32_t y = 0; y < 5; ++y) {
      for (std::int32_t x = 0; x < 6; ++x) EXPECT_EQ(image.at(x, y), ColorOf(surface, Pattern(x, y))) << x << "," << y;
    }
  }
}

TEST(DecodeBitmap, RefusesWhatItCannotReadAndSurvivesAnyBytes) {
  const DrawingSurface surface = MakeOffscreenSurface();
  const std::vector<std::uint8_t> good = MakeBmp(5, 3, false, Pattern);
  Image image;
  for (std::size_t length = 0; length < good.size(); ++length) {
    EXPECT_FALSE(DecodeBitmap(std::span(good).first(length), surface, image)) << length;
    EXPECT_TRUE(image.empty());
  }
  auto patched = [&](std::size_t at, std::uint8_t value) {
    std::vector<std::uint8_t> copy = good;
    copy[at] = value;
    return DecodeBitmap(copy, surface, image);
  };
  EXPECT_FALSE(patched(28, 8));     // 8 bits per pixel
  EXPECT_FALSE(patched(30, 1));     // compressed
  EXPECT_FALSE(patched(25, 0x80));  // height far below zero
  EXPECT_FALSE(patched(10, 0xFF));  // pixels past the end
  // Every single-byte change of the headers either decodes or is refused.
  std::uint32_t seed = 12345;
  for (int trial = 0; trial < 2000; ++trial) {
    seed = seed * 1103515245u + 12345u;
    patched((seed >> 8) % 54, static_cast<std::uint8_t>(seed >> 24));
  }
}

TEST(LoadSkins, ReadsTheShippedSkinsAtTheirSizes) {
  const DrawingSurface surface = MakeOffscreenSurface();
  Skins skins;
  testing::RecordingSink messages;
  EXPECT_EQ(LoadSkins(skins, surface, NORVANE_DATA_DIR "/skins", messages), 11);
  EXPECT_TRUE(messages.shown.empty());
  const std::pair<const Image*, std::int32_t> sizes[] = {
      {&skins.iss, 7}, {&skins.hst, 7}, {&skins.sat, 7}, {&skins.notSelected, 7},
      {&skins.gps, 7}, {&skins.gpsUnused, 7}, {&skins.sun, 12}, {&skins.moon, 12},
      {&skins.moonDark, 12}, {&skins.observer, 9}, {&skins.current, 11}};
  for (const auto& [image, side] : sizes) {
    EXPECT_EQ(image->width, side);
    EXPECT_EQ(image->height, side);
    EXPECT_NE(std::count(image->pixels.begin(), image->pixels.end(), skins.key), 0);  // a see-through background
  }
  EXPECT_EQ(skins.night.width, 240);
  EXPECT_EQ(skins.day.height, 320);
  EXPECT_EQ(skins.key, ColorOf(surface, kTransparencyKey));
}

TEST(LoadSkins, AMissingFolderNamesEveryFileInOrderAndLeavesEmptyImages) {
  const DrawingSurface surface = MakeOffscreenSurface();
  Skins skins;
  testing::RecordingSink messages;
  EXPECT_EQ(LoadSkins(skins, surface, NORVANE_TEST_DIR "/no-such-folder", messages), 0);
  EXPECT_EQ(messages.shown[0].title, "");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
  const std::vector<std::string> expected = {
      "Read bitmap night.bmp failed!", "Read bitmap day.bmp failed!", "Read bitmap iss.bmp failed!",
      "Read bitmap sun.bmp failed!", "Read bitmap moon.bmp failed!", "Read bitmap moondark.bmp failed!",
      "Read bitmap hst.bmp failed!", "Read bitmap sat.bmp failed!", "Read bitmap notsell.bmp failed!",
      "Read bitmap GPS.bmp failed!", "Read bitmap GPSU.bmp failed!"};
  EXPECT_EQ(messages.texts(), expected);
  EXPECT_TRUE(skins.night.empty());
  EXPECT_FALSE(skins.observer.empty());  // built in, always there
}

}  // namespace
}  // namespace norvane
