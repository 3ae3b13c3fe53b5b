#pragma once
#include <cstdint>

namespace norvane {

// A screen point in frame-buffer pixels; y grows downward.
struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

}  // namespace norvane
