#pragma once
#include <cstdint>

namespace norvane {

// The system's clocks as core sees them.
class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds of a monotonic counter that wraps at 2^32.
  virtual std::uint32_t tickCount() = 0;
};

}  // namespace norvane
