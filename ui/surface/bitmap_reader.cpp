#include "ui/surface/bitmap_reader.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace norvane {

namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::uint32_t kMaxFileSize = 64u * 1024u * 1024u;

std::uint32_t Read32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} | std::uint32_t{bytes[at + 1]} << 8 |
         std::uint32_t{bytes[at + 2]} << 16 | std::uint32_t{bytes[at + 3]} << 24;
}

std::uint16_t Read16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

// What the headers say about the pixel rows.
struct BitmapLayout {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool topDown = false;
  std::size_t offset = 0;  // first stored row
  std::size_t stride = 0;  // bytes per stored row
};

bool ReadLayout(std::span<const std::uint8_t> bytes, BitmapLayout& layout) {
  if (bytes.size() < kFileHeaderSize + kInfoHeaderSize) return false;
  if (bytes[0] != 'B' || bytes[1] != 'M') return false;
  const std::uint32_t headerSize = Read32(bytes, kFileHeaderSize);
  if (headerSize < kInfoHeaderSize) return false;
  const auto width = static_cast<std::int32_t>(Read32(bytes, kFileHeaderSize + 4));
  const auto height = static_cast<std::int32_t>(Read32(bytes, kFileHeaderSize + 8));
  const std::uint16_t planes = Read16(bytes, kFileHeaderSize + 12);
  const std::uint16_t bitsPerPixel = Read16(bytes, kFileHeaderSize + 14);
  const std::uint32_t compression = Read32(bytes, kFileHeaderSize + 16);
  if (planes != 1 || bitsPerPixel != 24 || compression != 0) return false;
  if (width < 1 || width > kMaxBitmapSide) return false;
  if (height == 0 || height < -kMaxBitmapSide || height > kMaxBitmapSide) return false;
  layout.width = width;
  layout.height = height < 0 ? -height : height;
  layout.topDown = height < 0;
  layout.offset = Read32(bytes, 10);
  layout.stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  const std::size_t needed = layout.stride * static_cast<std::size_t>(layout.height);
  return layout.offset <= bytes.size() && needed <= bytes.size() - layout.offset;
}

// The 24-bit section the bitmap is copied into: bottom-up rows of a width
// rounded up to a multiple of 4 pixels, blue, green, red per pixel.
struct Section {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint8_t> bytes;

  std::size_t stride() const { return static_cast<std::size_t>(width) * 3; }
};

Section CopyIntoSection(std::span<const std::uint8_t> file, const BitmapLayout& layout) {
  Section section;
  section.width = (layout.width + 3) / 4 * 4;
  section.height = layout.height;
  section.bytes.assign(section.stride() * static_cast<std::size_t>(section.height), 0);
  const std::size_t rowBytes = static_cast<std::size_t>(layout.width) * 3;
  for (std::int32_t stored = 0; stored < layout.height; ++stored) {
    // Section row 0 is the bottom row, as in a bottom-up file.
    const std::int32_t sectionRow = layout.topDown ? layout.height - 1 - stored : stored;
    const std::size_t from = layout.offset + layout.stride * static_cast<std::size_t>(stored);
    const std::size_t to = section.stride() * static_cast<std::size_t>(sectionRow);
    std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(from), rowBytes,
                section.bytes.begin() + static_cast<std::ptrdiff_t>(to));
  }
  return section;
}

}  // namespace

bool DecodeBitmap(std::span<const std::uint8_t> bytes, const DrawingSurface& surface, Image& image) {
  image = Image{};
  BitmapLayout layout;
  if (!ReadLayout(bytes, layout)) return false;
  const Section section = CopyIntoSection(bytes, layout);

  image.width = layout.width;
  image.height = layout.height;
  image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  std::size_t target = 0;
  for (std::int32_t y = 0; y < image.height; ++y) {
    // Image rows run top first; the section's run bottom first.
    std::size_t source = section.stride() * static_cast<std::size_t>(section.height - 1 - y);
    for (std::int32_t x = 0; x < image.width; ++x, source += 3) {
      const std::uint32_t blue = section.bytes[source];
      const std::uint32_t green = section.bytes[source + 1];
      const std::uint32_t red = section.bytes[source + 2];
      image.pixels[target++] = ColorOf(surface, red | green << 8 | blue << 16);
    }
  }
  return true;
}

bool ReadBitmapFile(const std::string& path, const DrawingSurface& surface, Image& image) {
  image = Image{};
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  std::vector<std::uint8_t> bytes;
  char chunk[65536];
  while (file && bytes.size() <= kMaxFileSize) {
    file.read(chunk, sizeof chunk);
    bytes.insert(bytes.end(), chunk, chunk + file.gcount());
  }
  if (bytes.size() > kMaxFileSize) return false;
  return DecodeBitmap(bytes, surface, image);
}

}  // namespace norvane
