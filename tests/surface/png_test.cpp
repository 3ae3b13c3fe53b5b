#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/common/test_support.h"
#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/deflate.h"
#include "ui/surface/png_writer.h"
#include "ui/surface/primitives.h"
#include "ui/surface/skins.h"
#include "ui/surface/text.h"

#ifdef NORVANE_HAVE_ZLIB
#include <zlib.h>
#endif

namespace norvane {
namespace {

std::span<const std::uint8_t> Bytes(const char* text) {
  return {reinterpret_cast<const std::uint8_t*>(text), std::strlen(text)};
}

TEST(Checksums, MatchTheirPublishedCheckValues) {
  EXPECT_EQ(Crc32(Bytes("123456789")), 0xCBF43926u);
  EXPECT_EQ(Adler32(Bytes("Wikipedia")), 0x11E60398u);
  EXPECT_EQ(Adler32({}), 1u);
}

#ifdef NORVANE_HAVE_ZLIB
std::vector<std::uint8_t> Inflate(const std::vector<std::uint8_t>& packed, std::size_t size) {
  std::vector<std::uint8_t> out(size + 1);
  uLongf length = static_cast<uLongf>(out.size());
  EXPECT_EQ(uncompress(out.data(), &length, packed.data(), static_cast<uLong>(packed.size())), Z_OK);
  out.resize(length);
  return out;
}

TEST(ZlibCompress, InflatesBackToTheInput) {
  std::vector<std::vector<std::uint8_t>> inputs = {{}, {42}, std::vector<std::uint8_t>(70000, 7)};
  std::vector<std::uint8_t> mixed;
  std::uint32_t seed = 1;
  for (int i = 0; i < 100000; ++i) {
    seed = seed * 1103515245u + 12345u;
    mixed.push_back(static_cast<std::uint8_t>(i % 300 < 150 ? (seed >> 16) % 4 : seed >> 24));
  }
  inputs.push_back(mixed);
  for (const auto& input : inputs) EXPECT_EQ(Inflate(ZlibCompress(input), input.size()), input);
}
#endif

// The font and the skins on one screen, written next to the test binary to be looked at.
DrawingSurface TestCard() {
  DrawingSurface surface = MakeOffscreenSurface();
  Skins skins;
  testing::QuietSink quiet;
  LoadSkins(skins, surface, NORVANE_DATA_DIR "/skins", quiet);
  Blit(surface, 0, 0, 240, 320, skins.night, 0, 0);
  Blit(surface, 120, 0, 120, 320, skins.day, 120, 0);
  FillRect(surface, 4, 110, 100, 232, Rgb(0, 0, 60));
  for (int line = 0; line < 6; ++line) {
    std::string text;
    for (int c = 0; c < 16 && 32 + line * 16 + c < 127; ++c) text += static_cast<char>(32 + line * 16 + c);
    Point p{10, 14 + 12 * line};
    DrawText(surface, p, text, static_cast<int>(text.size()), Rgb(255, 255, 255), false, false);
  }
  Point degrees{120, 100};
  DrawText(surface, degrees, "Azm. 123.4~", 11, Rgb(255, 255, 0), false, true);
  const Image* icons[] = {&skins.sun, &skins.moon, &skins.moonDark, &skins.iss, &skins.hst, &skins.sat,
                          &skins.notSelected, &skins.gps, &skins.gpsUnused, &skins.observer, &skins.current};
  std::int32_t x = 8;
  for (const Image* icon : icons) {
    BlitKeyed(surface, x, 130, icon->width, icon->height, *icon, skins.key, 0, 0);
    x += icon->width + 8;
  }
  DrawRect(surface, 8, 300, 140, 224, Rgb(80, 120, 190));
  Point vertical{230, 160};
  DrawText(surface, vertical, "VERTICAL", 8, Rgb(225, 0, 0), true, false);
  return surface;
}

TEST(EncodePng, WritesAValidDeterministicImage) {
  const DrawingSurface surface = TestCard();
  const std::vector<std::uint8_t> png = EncodePng(surface);
  ASSERT_GT(png.size(), 100u);
  EXPECT_EQ(png, EncodePng(surface));
  const std::uint8_t header[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R',
                                 0, 0, 0, 240, 0, 0, 1, 64, 8, 2};
  EXPECT_EQ(std::memcmp(png.data(), header, sizeof header), 0);
#ifdef NORVANE_HAVE_ZLIB
  const std::vector<std::uint8_t> idat(png.begin() + 41, png.end() - 16);
  const std::vector<std::uint8_t> rows = Inflate(idat, std::size_t{320} * 721);
  ASSERT_EQ(rows.size(), 320u * 721u);
  const std::uint16_t pixel = PixelAt(surface, 17, 33);
  const std::size_t at = 33 * 721 + 1 + 17 * 3;
  EXPECT_EQ(rows[at], (pixel >> 11) << 3 | (pixel >> 11) >> 2);
#endif
  EXPECT_TRUE(WritePng(surface, NORVANE_BUILD_DIR "/surface_card.png"));
  EXPECT_FALSE(WritePng(surface, NORVANE_BUILD_DIR "/no-such-folder/card.png"));
}

}  // namespace
}  // namespace norvane
