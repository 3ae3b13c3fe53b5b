#pragma once
#include "core/platform/system_clock.h"

namespace norvane {

// The system clock through clock_settime: setting it needs the privilege to
// change the time (root or CAP_SYS_TIME); without it setLocalTime fails.
class LinuxSystemClock final : public SystemClock {
 public:
  std::uint32_t tickCount() override;
  LocalClockTime localTime() override;
  bool setLocalTime(const LocalClockTime& time) override;
  void sleepMs(int milliseconds) override;
};

// True when the fields name a real local time (no field is wrapped into the next).
bool IsValidLocalTime(const LocalClockTime& time);

}  // namespace norvane
