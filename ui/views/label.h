#pragma once
#include <cstdint>

#include "ui/surface/drawing_surface.h"

namespace norvane {

// Room of the views' label buffer.
inline constexpr int kLabelSize = 40;

// Fills the label buffer with blanks, formats into it and draws its first
// `length` characters horizontally from (x, y), not centred; what the text
// does not fill is blank.
[[gnu::format(printf, 6, 7)]] void DrawLabel(DrawingSurface& surface, std::int32_t x, std::int32_t y,
                                             int length, std::uint32_t rgb, const char* format, ...);

}  // namespace norvane
