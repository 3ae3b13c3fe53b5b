#include "ui/views/moon_phase.h"

#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {

MoonDisc DiscOf(const Image& skin, std::uint16_t key) {
  std::int32_t left = skin.width, right = -1, top = skin.height, bottom = -1;
  for (std::int32_t y = 0; y < skin.height; ++y) {
    for (std::int32_t x = 0; x < skin.width; ++x) {
      if (skin.at(x, y) == key) continue;
      if (x < left) left = x;
      if (x > right) right = x;
      if (y < top) top = y;
      if (y > bottom) bottom = y;
    }
  }
  if (right < left) return {};
  return {(left + right) * 0.5, (top + bottom) * 0.5, (right - left + 1) * 0.5};
}

bool MoonPixelUnlit(const MoonDisc& disc, std::int32_t col, std::int32_t row, double phase, bool waxing) {
  if (!(disc.radius > 0.0)) return false;
  const double u = (col - disc.cx) / disc.radius;
  const double v = (row - disc.cy) / disc.radius;
  const double half = std::sqrt(std::fmax(0.0, 1.0 - v * v));
  const double boundary = std::cos(kPi * phase) * half;
  return waxing ? u < boundary : u > -boundary;
}

}  // namespace norvane
