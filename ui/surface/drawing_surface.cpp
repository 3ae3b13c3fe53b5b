#include "ui/surface/drawing_surface.h"

#include <utility>

#include "ui/surface/color.h"

namespace norvane {

namespace {
constexpr std::int64_t kMaxPixels = std::int64_t{16} * 1024 * 1024;

std::int64_t OffsetOf(const DrawingSurface& surface, std::int64_t x, std::int64_t y) {
  return x * surface.xStep + y * surface.yStep;
}

bool InBuffer(const DrawingSurface& surface, std::int64_t offset) {
  return surface.base != nullptr && offset >= surface.lowestOffset &&
         offset <= surface.highestOffset;
}

// The part one axis adds to the lowest or the highest offset.
void AddExtent(std::int64_t step, std::int64_t count, std::int64_t& lowest, std::int64_t& highest) {
  const std::int64_t extent = step * (count - 1);
  if (step >= 0) {
    highest += extent;
  } else {
    lowest += extent;
  }
}
}  // namespace

void SetSurfaceProperties(DrawingSurface& surface, const DisplayProperties& properties) {
  surface.base = nullptr;
  surface.buffer.clear();
  surface.width = properties.width;
  surface.height = properties.height;
  surface.xPitch = properties.xPitch;
  surface.yPitch = properties.yPitch;
  surface.bitsPerPixel = properties.bitsPerPixel;
  surface.formatFlags = properties.formatFlags;
  surface.cursor = 0;
  surface.xStep = properties.xPitch / 2;
  surface.yStep = properties.yPitch / 2;
  std::int64_t lowest = 0;
  std::int64_t highest = 0;
  if (surface.width > 0 && surface.height > 0) {
    AddExtent(surface.xStep, surface.width, lowest, highest);
    AddExtent(surface.yStep, surface.height, lowest, highest);
  }
  const bool fits = highest - lowest < kMaxPixels;
  surface.lowestOffset = fits ? static_cast<std::int32_t>(lowest) : 0;
  surface.highestOffset = fits ? static_cast<std::int32_t>(highest) : -1;
}

bool AllocateSurface(DrawingSurface& surface) {
  const std::int64_t count =
      std::int64_t{surface.highestOffset} - surface.lowestOffset + 1;
  if (surface.width <= 0 || surface.height <= 0 || count <= 0 || count > kMaxPixels) {
    surface.base = nullptr;
    surface.buffer.clear();
    return false;
  }
  surface.buffer.assign(static_cast<std::size_t>(count), 0);
  surface.base = surface.buffer.data() - surface.lowestOffset;
  return true;
}

DrawingSurface MakeOffscreenSurface(const DisplayProperties& properties) {
  DrawingSurface surface;
  SetSurfaceProperties(surface, properties);
  AllocateSurface(surface);
  return surface;
}

std::uint16_t ColorOf(const DrawingSurface& surface, std::uint32_t rgb) {
  return surface.bitsPerPixel == 16 ? Rgb565(rgb) : 0;
}

void SetCursor(DrawingSurface& surface, std::int32_t x, std::int32_t y) {
  surface.cursor = OffsetOf(surface, x, y);
}

void PutCursor(DrawingSurface& surface, std::uint16_t value) {
  if (InBuffer(surface, surface.cursor)) surface.base[surface.cursor] = value;
}

void StepRight(DrawingSurface& surface) { surface.cursor += surface.xStep; }

int PutPixel(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::uint16_t value) {
  if (surface.base == nullptr) return 0;
  if (static_cast<std::uint32_t>(x) >= static_cast<std::uint32_t>(surface.width)) return 0;
  if (static_cast<std::uint32_t>(y) >= static_cast<std::uint32_t>(surface.height)) return 0;
  if (surface.bitsPerPixel != 16) return 0;
  surface.base[OffsetOf(surface, x, y)] = value;
  return 1;
}

std::uint16_t PixelAt(const DrawingSurface& surface, std::int32_t x, std::int32_t y) {
  if (surface.base == nullptr || x < 0 || y < 0 || x >= surface.width || y >= surface.height) {
    return 0;
  }
  return surface.base[OffsetOf(surface, x, y)];
}

void Present(const DrawingSurface& surface, Display& display) {
  if (surface.base == nullptr || surface.buffer.empty()) return;
  Frame frame;
  frame.pixels = surface.buffer.data();
  frame.count = static_cast<std::int32_t>(surface.buffer.size());
  frame.origin = -surface.lowestOffset;
  frame.width = surface.width;
  frame.height = surface.height;
  frame.xStep = surface.xStep;
  frame.yStep = surface.yStep;
  display.present(frame);
}

}  // namespace norvane
