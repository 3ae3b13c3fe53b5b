#pragma once
#include <cstdint>

namespace norvane {

constexpr int kFontGlyphCount = 95;  // characters 32 to 126
constexpr int kGlyphColumns = 6;
constexpr int kGlyphRows = 8;
constexpr int kGlyphCells = kGlyphColumns * kGlyphRows;

// The built-in font: per glyph 48 cells, row by row, left to right; 1 sets the
// pixel. '~' is a small raised circle, the degree sign of the views.
extern const std::uint16_t kFontGlyphs[kFontGlyphCount][kGlyphCells];

// The glyph of a character; characters outside 32-126 get the space.
inline const std::uint16_t* GlyphOf(unsigned char character) {
  const int index = character >= 32 && character <= 126 ? character - 32 : 0;
  return kFontGlyphs[index];
}

}  // namespace norvane
