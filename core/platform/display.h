#pragma once
#include <cstdint>

namespace norvane {

// Geometry of a 16-bit frame buffer: size in pixels, pitches in bytes.
struct DisplayProperties {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t xPitch = 0;
  std::int32_t yPitch = 0;
  std::int32_t bitsPerPixel = 0;
  std::int32_t formatFlags = 0;
};

// One finished frame: `count` RGB565 pixels in one block. Pixel (x, y) is at
// pixels[origin + x * xStep + y * yStep].
struct Frame {
  const std::uint16_t* pixels = nullptr;
  std::int32_t count = 0;
  std::int32_t origin = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t xStep = 0;
  std::int32_t yStep = 0;
};

// The screen the graphic views are shown on. It reports its frame-buffer
// geometry and takes each finished frame whole, once per paint.
class Display {
 public:
  virtual ~Display() = default;
  virtual DisplayProperties properties() const = 0;
  virtual void present(const Frame& frame) = 0;
};

// The portrait 240 x 320 RGB565 screen, rows of 240 pixels top to bottom.
constexpr DisplayProperties kPortraitDisplay{240, 320, 2, 480, 16, 0};

}  // namespace norvane
