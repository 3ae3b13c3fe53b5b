#pragma once
#include <cstdint>

#include "ui/surface/drawing_surface.h"
#include "ui/surface/point.h"

namespace norvane {

// Line from `from` towards `to` in the 24-bit colour; the end point itself is
// not drawn, and neither are row 0 and column 0.
void DrawLine(DrawingSurface& surface, Point from, Point to, std::uint32_t rgb);

// Outline whose bottom-left corner is (x, y); it reaches up to row y - height
// and right to column x + width.
void DrawRect(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t height,
              std::int32_t width, std::uint32_t rgb);

// Fills rows y - height ... y - 1 and columns x ... x + width - 1. Callers keep
// it on screen: rows off screen are dropped, columns past an edge wrap to the
// neighbouring row as the buffer lays them out.
void FillRect(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t height,
              std::int32_t width, std::uint32_t rgb);

}  // namespace norvane
