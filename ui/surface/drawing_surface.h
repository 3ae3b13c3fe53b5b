#pragma once
#include <cstdint>
#include <vector>

#include "core/platform/display.h"

namespace norvane {

// A 16-bit frame buffer addressed through pixel steps. `base` is pixel (0, 0);
// every pixel of the screen lies between base + lowestOffset and
// base + highestOffset. The off-screen surface owns its buffer, so it can be
// moved but not copied.
struct DrawingSurface {
  std::uint16_t* base = nullptr;
  std::vector<std::uint16_t> buffer;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t xPitch = 0;  // bytes
  std::int32_t yPitch = 0;  // bytes
  std::int32_t bitsPerPixel = 0;
  std::int32_t formatFlags = 0;
  std::int64_t cursor = 0;  // pixel offset from base, set by SetCursor
  std::int32_t xStep = 0;  // pixels
  std::int32_t yStep = 0;  // pixels
  std::int32_t lowestOffset = 0;
  std::int32_t highestOffset = 0;

  DrawingSurface() = default;
  DrawingSurface(const DrawingSurface&) = delete;
  DrawingSurface& operator=(const DrawingSurface&) = delete;
  DrawingSurface(DrawingSurface&&) = default;
  DrawingSurface& operator=(DrawingSurface&&) = default;

  // Views' centre point: half the screen size, truncated.
  std::int32_t centreX() const { return width / 2; }
  std::int32_t centreY() const { return height / 2; }
};

// Takes size, pitches and format from the display and derives the pixel steps
// and the lowest and highest offsets. No buffer yet.
void SetSurfaceProperties(DrawingSurface& surface, const DisplayProperties& properties);

// Allocates (highest - lowest + 1) pixels, all 0, with the lowest offset at the
// buffer's start. False when the geometry is unusable (no pixels, or more than
// 16 M of them).
bool AllocateSurface(DrawingSurface& surface);

// The off-screen surface for a display: properties set and buffer allocated.
DrawingSurface MakeOffscreenSurface(const DisplayProperties& properties = kPortraitDisplay);

// The 24-bit colour as a pixel of the surface; 0 unless it has 16 bits per pixel.
std::uint16_t ColorOf(const DrawingSurface& surface, std::uint32_t rgb);

// Cursor operations: position at (x, y), write there, move one x step. A
// write whose cursor lies outside the buffer is dropped.
void SetCursor(DrawingSurface& surface, std::int32_t x, std::int32_t y);
void PutCursor(DrawingSurface& surface, std::uint16_t value);
void StepRight(DrawingSurface& surface);

// Writes one pixel. 1 when drawn; 0 without a buffer, off screen (x and y taken
// unsigned) or on a surface that is not 16 bits per pixel.
int PutPixel(DrawingSurface& surface, std::int32_t x, std::int32_t y, std::uint16_t value);

// Reads one pixel; 0 off screen or without a buffer.
std::uint16_t PixelAt(const DrawingSurface& surface, std::int32_t x, std::int32_t y);

// Hands the whole frame to the display in one block.
void Present(const DrawingSurface& surface, Display& display);

}  // namespace norvane
