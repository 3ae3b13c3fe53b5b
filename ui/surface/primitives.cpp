#include "ui/surface/primitives.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace norvane {

namespace {

// Range [first, last] of i for which start + direction * i lies in [1, size).
bool MajorRange(std::int64_t start, std::int64_t direction, std::int64_t size, std::int64_t& first,
                std::int64_t& last) {
  if (direction > 0) {
    first = std::max<std::int64_t>(first, 1 - start);
    last = std::min<std::int64_t>(last, size - 1 - start);
  } else {
    first = std::max<std::int64_t>(first, start - (size - 1));
    last = std::min<std::int64_t>(last, start - 1);
  }
  return first <= last;
}

}  // namespace

void DrawLine(DrawingSurface& surface, Point from, Point to, std::uint32_t rgb) {
  const std::int64_t dx = std::int64_t{to.x} - from.x;
  const std::int64_t dy = std::int64_t{to.y} - from.y;
  const bool alongX = std::llabs(dx) > std::llabs(dy);
  const std::int64_t n = alongX ? std::llabs(dx) : std::llabs(dy);
  if (n == 0) return;
  const double sx = static_cast<double>(dx) / static_cast<double>(n);
  const double sy = static_cast<double>(dy) / static_cast<double>(n);

  // The major axis moves exactly one pixel per step, so the steps that can
  // land on screen are known in advance; the others would draw nothing.
  std::int64_t first = 0;
  std::int64_t last = n - 1;
  const bool visible = alongX ? MajorRange(from.x, dx > 0 ? 1 : -1, surface.width, first, last)
                              : MajorRange(from.y, dy > 0 ? 1 : -1, surface.height, first, last);
  if (!visible) return;

  const std::uint16_t value = ColorOf(surface, rgb);
  for (std::int64_t i = first; i <= last; ++i) {
    const double step = static_cast<double>(i);
    const std::int64_t x = from.x + static_cast<std::int64_t>(std::trunc(sx * step));
    const std::int64_t y = from.y + static_cast<std::int64_t>(std::trunc(sy * step));
    if (x >= 1 && x < surface.width && y >= 1 && y < surface.height) {
      PutPixel(surface, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), value);
    }
  }
}

void DrawRect(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t height,
              std::int32_t width, std::uint32_t rgb) {
  const std::int32_t top = y - height;
  const std::int32_t right = x + width;
  DrawLine(surface, {x, y}, {right, y}, rgb);
  DrawLine(surface, {x, y}, {x, top}, rgb);
  DrawLine(surface, {right, y}, {right, top}, rgb);
  // One pixel longer, so that the corner the line leaves out is closed.
  DrawLine(surface, {x, top}, {right + 1, top}, rgb);
}

void FillRect(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t height,
              std::int32_t width, std::uint32_t rgb) {
  if (surface.base == nullptr || surface.bitsPerPixel != 16) return;
  const std::uint16_t value = ColorOf(surface, rgb);
  // Rows stay on screen; columns are not clipped, so one past the right edge
  // lands where the buffer puts it (the next row), as on the device. The
  // column span is capped at the buffer's size, beyond which nothing lands.
  const std::int64_t span = std::int64_t{surface.highestOffset} - surface.lowestOffset + 1;
  const std::int64_t rowFirst = std::max<std::int64_t>(std::int64_t{y} - height, 0);
  const std::int64_t rowEnd = std::min<std::int64_t>(y, surface.height);
  const std::int64_t columnFirst = std::max<std::int64_t>(x, -span);
  const std::int64_t columnEnd = std::min<std::int64_t>(std::int64_t{x} + width, span);
  for (std::int64_t row = rowFirst; row < rowEnd; ++row) {
    for (std::int64_t column = columnFirst; column < columnEnd; ++column) {
      const std::int64_t offset = column * surface.xStep + row * surface.yStep;
      if (offset >= surface.lowestOffset && offset <= surface.highestOffset) {
        surface.base[offset] = value;
      }
    }
  }
}

}  // namespace norvane
