#pragma once
#include <chrono>
#include <cstdint>

#include "core/platform/clock.h"

namespace norvane {

// Tick count from the monotonic clock; safe to use from any thread.
class SteadyClock final : public Clock {
 public:
  std::uint32_t tickCount() override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(ms));
  }
};

}  // namespace norvane
