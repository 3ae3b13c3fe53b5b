#pragma once
#include <cstdint>
#include <string_view>

#include "ui/surface/drawing_surface.h"
#include "ui/surface/point.h"

namespace norvane {

// Draws `length` characters of the built-in font, 6 pixels apart, starting at
// point (the glyph's top-left). Characters past the end of text draw as
// spaces. Vertical text reads downward with the glyph tops to the right of
// point.x. Centred text first moves point back by half its length and by 4
// across; the caller's point keeps that move. Pixels on row 0, column 0 or off
// screen are left out.
void DrawText(DrawingSurface& surface, Point& point, std::string_view text, int length,
              std::uint32_t rgb, bool vertical, bool centred);

}  // namespace norvane
