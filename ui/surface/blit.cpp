#include "ui/surface/blit.h"

#include <algorithm>

#include "ui/surface/color.h"

namespace norvane {

namespace {

// The destination and source rectangles of a blit after clipping.
struct BlitArea {
  std::int64_t x = 0, y = 0, w = 0, h = 0, sx = 0, sy = 0;
};

enum class Check { Refused, Nothing, Draw };

Check Prepare(const DrawingSurface& surface, const Image& image, BlitArea& area) {
  if (surface.base == nullptr || image.empty()) return Check::Refused;
  if (image.width <= 0 || image.height <= 0 ||
      image.pixels.size() != static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height)) {
    return Check::Refused;
  }
  if (area.w <= 0 || area.h <= 0 || area.sx < 0 || area.sy < 0) return Check::Refused;
  if (area.sx + area.w > image.width || area.sy + area.h > image.height) return Check::Refused;
  if (area.x > surface.width || area.y > surface.height) return Check::Nothing;
  if (area.x < 0) {
    area.w += area.x;
    area.sx -= area.x;
    area.x = 0;
  }
  if (area.y < 0) {
    area.h += area.y;
    area.sy -= area.y;
    area.y = 0;
  }
  if (area.w > surface.width - area.x) area.w = surface.width - area.x;
  if (area.h > surface.height - area.y) area.h = surface.height - area.y;
  if (surface.bitsPerPixel != 16) return Check::Refused;
  return area.w > 0 && area.h > 0 ? Check::Draw : Check::Nothing;
}

// Copies the prepared area row by row; `copy(sx, sy)` decides per source
// pixel. The area is clipped to the screen, so every target is in the buffer.
template <typename Copy>
void CopyArea(DrawingSurface& surface, const Image& image, const BlitArea& area, Copy copy) {
  for (std::int64_t row = 0; row < area.h; ++row) {
    const auto sy = static_cast<std::int32_t>(area.sy + row);
    std::uint16_t* target = surface.base + area.x * surface.xStep + (area.y + row) * surface.yStep;
    for (std::int64_t column = 0; column < area.w; ++column, target += surface.xStep) {
      const auto sx = static_cast<std::int32_t>(area.sx + column);
      if (copy(sx, sy)) *target = image.at(sx, sy);
    }
  }
}

// Whole rows at once where the surface's rows are contiguous.
void CopyRows(DrawingSurface& surface, const Image& image, const BlitArea& area) {
  const auto w = static_cast<std::size_t>(area.w);
  for (std::int64_t row = 0; row < area.h; ++row) {
    const std::uint16_t* source = &image.pixels[static_cast<std::size_t>(area.sy + row) * static_cast<std::size_t>(image.width) +
                                                static_cast<std::size_t>(area.sx)];
    std::copy_n(source, w, surface.base + area.x + (area.y + row) * surface.yStep);
  }
}

BlitArea AreaOf(std::int32_t x, std::int32_t y, std::int32_t w, std::int32_t h, std::int32_t sx,
                std::int32_t sy) {
  return {x, y, w, h, sx, sy};
}

}  // namespace

int Blit(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w, std::int32_t h,
         const Image& image, std::int32_t sx, std::int32_t sy) {
  return BlitKeyed(surface, x, y, w, h, image, kNoKey, sx, sy);
}

int BlitKeyed(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w,
              std::int32_t h, const Image& image, std::uint16_t key, std::int32_t sx,
              std::int32_t sy) {
  BlitArea area = AreaOf(x, y, w, h, sx, sy);
  const Check check = Prepare(surface, image, area);
  if (check != Check::Draw) return check == Check::Nothing ? 1 : 0;
  if (key == kNoKey && surface.xStep == 1) {
    CopyRows(surface, image, area);
  } else if (key == kNoKey) {
    CopyArea(surface, image, area, [](std::int32_t, std::int32_t) { return true; });
  } else {
    CopyArea(surface, image, area,
             [&](std::int32_t px, std::int32_t py) { return image.at(px, py) != key; });
  }
  return 1;
}

int BlitMasked(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w,
               std::int32_t h, const Image& image, const Image& mask, std::int32_t sx,
               std::int32_t sy) {
  if (mask.width != image.width || mask.height != image.height || mask.empty()) return 0;
  BlitArea area = AreaOf(x, y, w, h, sx, sy);
  const Check check = Prepare(surface, image, area);
  if (check != Check::Draw) return check == Check::Nothing ? 1 : 0;
  CopyArea(surface, image, area,
           [&](std::int32_t px, std::int32_t py) { return mask.at(px, py) != 0; });
  return 1;
}

}  // namespace norvane
