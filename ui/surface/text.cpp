#include "ui/surface/text.h"

#include <algorithm>

#include "ui/surface/font.h"

namespace norvane {

namespace {

void DrawPixel(DrawingSurface& surface, std::int64_t x, std::int64_t y, std::uint16_t value) {
  if (x > 0 && x < surface.width && y > 0 && y < surface.height) {
    PutPixel(surface, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), value);
  }
}

}  // namespace

void DrawText(DrawingSurface& surface, Point& point, std::string_view text, int length,
              std::uint32_t rgb, bool vertical, bool centred) {
  if (centred) {
    const auto half = static_cast<std::int32_t>(std::int64_t{length} * kGlyphColumns / 2);
    if (vertical) {
      point.y -= half;
      point.x -= 4;
    } else {
      point.x -= half;
      point.y -= 4;
    }
  }
  const std::uint16_t value = ColorOf(surface, rgb);
  // Past the end of text every character is a blank space: stop there.
  const std::int64_t drawn = std::min<std::int64_t>(length, static_cast<std::int64_t>(text.size()));
  for (std::int64_t i = 0; i < drawn; ++i) {
    const auto character = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
    const std::uint16_t* glyph = GlyphOf(character);
    const std::int64_t advance = std::int64_t{kGlyphColumns} * i;
    for (int row = 0; row < kGlyphRows; ++row) {
      for (int column = 0; column < kGlyphColumns; ++column) {
        if (glyph[row * kGlyphColumns + column] == 0) continue;
        if (vertical) {
          DrawPixel(surface, std::int64_t{point.x} - row, std::int64_t{point.y} + column + advance, value);
        } else {
          DrawPixel(surface, std::int64_t{point.x} + column + advance, std::int64_t{point.y} + row, value);
        }
      }
    }
  }
}

}  // namespace norvane
