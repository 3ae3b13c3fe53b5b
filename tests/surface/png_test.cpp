#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "ui/surface/color.h"
#include "ui/surface/deflate.h"
#include "ui/surface/png_writer.h"
#include "ui/surface/primitives.h"

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

TEST(EncodePng, WritesAValidDeterministicImage) {
  DrawingSurface surface = MakeOffscreenSurface();
  for (std::int32_t y = 0; y < 320; y += 3) {
    FillRect(surface, 0, y + 1, 1, 240, Rgb(static_cast<std::uint32_t>(y % 256), 90, 200));  // row y
  }
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
  EXPECT_TRUE(WritePng(surface, NORVANE_BUILD_DIR "/surface_stripes.png"));
  EXPECT_FALSE(WritePng(surface, NORVANE_BUILD_DIR "/no-such-folder/card.png"));
}

}  // namespace
}  // namespace norvane
