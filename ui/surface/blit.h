#pragma once
#include <cstdint>

#include "ui/surface/drawing_surface.h"
#include "ui/surface/image.h"

namespace norvane {

// Copies the w x h block of image at (sx, sy) to (x, y), clipped to the
// screen. 0 when refused (no buffer or image, empty or out-of-image source
// block, surface not 16 bits per pixel); 1 otherwise, also when the block lies
// wholly past the right or bottom edge.
int Blit(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w, std::int32_t h,
         const Image& image, std::int32_t sx, std::int32_t sy);

// As Blit, leaving out image pixels equal to key (a surface pixel value).
// A key of kNoKey (65535, white) copies every pixel.
int BlitKeyed(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w,
              std::int32_t h, const Image& image, std::uint16_t key, std::int32_t sx,
              std::int32_t sy);

// As Blit, copying only where the mask (same size as the image) is not 0.
int BlitMasked(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::int32_t w,
               std::int32_t h, const Image& image, const Image& mask, std::int32_t sx,
               std::int32_t sy);

}  // namespace norvane
