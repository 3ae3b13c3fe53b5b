#include "ui/surface/png_writer.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "ui/surface/deflate.h"

namespace norvane {

namespace {

std::array<std::uint32_t, 256> MakeCrcTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t n = 0; n < 256; ++n) {
    std::uint32_t c = n;
    for (int k = 0; k < 8; ++k) c = (c & 1u) != 0 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
    table[n] = c;
  }
  return table;
}

void Put32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void Chunk(std::vector<std::uint8_t>& out, std::string_view type, std::span<const std::uint8_t> data) {
  Put32(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = out.size();
  out.insert(out.end(), type.begin(), type.end());
  out.insert(out.end(), data.begin(), data.end());
  Put32(out, Crc32(std::span<const std::uint8_t>(out).subspan(start)));
}

// Rows of filter byte 0 and RGB triples.
std::vector<std::uint8_t> Scanlines(const DrawingSurface& surface) {
  std::vector<std::uint8_t> rows;
  rows.reserve(static_cast<std::size_t>(surface.height) * (static_cast<std::size_t>(surface.width) * 3 + 1));
  for (std::int32_t y = 0; y < surface.height; ++y) {
    rows.push_back(0);
    for (std::int32_t x = 0; x < surface.width; ++x) {
      const std::uint32_t pixel = PixelAt(surface, x, y);
      const std::uint32_t red = pixel >> 11 & 0x1Fu;
      const std::uint32_t green = pixel >> 5 & 0x3Fu;
      const std::uint32_t blue = pixel & 0x1Fu;
      rows.push_back(static_cast<std::uint8_t>(red << 3 | red >> 2));
      rows.push_back(static_cast<std::uint8_t>(green << 2 | green >> 4));
      rows.push_back(static_cast<std::uint8_t>(blue << 3 | blue >> 2));
    }
  }
  return rows;
}

}  // namespace

std::uint32_t Crc32(std::span<const std::uint8_t> bytes) {
  static const std::array<std::uint32_t, 256> table = MakeCrcTable();
  std::uint32_t c = 0xFFFFFFFFu;
  for (const std::uint8_t byte : bytes) c = table[(c ^ byte) & 0xFFu] ^ (c >> 8);
  return c ^ 0xFFFFFFFFu;
}

std::vector<std::uint8_t> EncodePng(const DrawingSurface& surface) {
  if (surface.base == nullptr || surface.width <= 0 || surface.height <= 0) return {};
  std::vector<std::uint8_t> out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  std::vector<std::uint8_t> header;
  Put32(header, static_cast<std::uint32_t>(surface.width));
  Put32(header, static_cast<std::uint32_t>(surface.height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8-bit RGB, deflate, no filter, no interlace
  Chunk(out, "IHDR", header);
  Chunk(out, "IDAT", ZlibCompress(Scanlines(surface)));
  Chunk(out, "IEND", {});
  return out;
}

bool WritePng(const DrawingSurface& surface, const std::string& path) {
  const std::vector<std::uint8_t> png = EncodePng(surface);
  if (png.empty()) return false;
  const std::string temporary = path + ".tmp";
  std::FILE* file = std::fopen(temporary.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(png.data(), 1, png.size(), file) == png.size();
  const bool closed = std::fclose(file) == 0;
  if (!written || !closed || std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::remove(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace norvane
