#pragma once
#include <cstdint>

namespace norvane {

// A coordinate far off every screen, for values that have no pixel.
inline constexpr std::int32_t kOffScreen = -1000000;

// Truncates a coordinate toward zero; NaN and values beyond a million pixels
// (which no screen shows) become kOffScreen instead of overflowing.
inline std::int32_t TruncPixel(double v) {
  if (!(v > -1e6 && v < 1e6)) return kOffScreen;
  return static_cast<std::int32_t>(v);
}

}  // namespace norvane
