#pragma once
#include <cstdint>
#include <vector>

namespace norvane {

// A bitmap in the surface's pixel format, row-major, top row first. An empty
// image (no pixels) draws nothing.
struct Image {
  std::vector<std::uint16_t> pixels;
  std::int32_t width = 0;
  std::int32_t height = 0;

  bool empty() const { return pixels.empty(); }
  std::uint16_t at(std::int32_t x, std::int32_t y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

}  // namespace norvane
