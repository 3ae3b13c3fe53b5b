#pragma once
#include "core/platform/clock.h"

namespace norvane {

// A local calendar date and clock time as the system clock holds it.
struct LocalClockTime {
  int year = 0, month = 0, day = 0;  // month 1-12, day 1-31
  int hour = 0, minute = 0, second = 0;
  int milliseconds = 0;
};

// The system clock that "Set GPS time" reads and sets, and the wait it makes.
class SystemClock : public Clock {
 public:
  virtual LocalClockTime localTime() = 0;
  // False when the fields are not a valid time or the clock cannot be set.
  virtual bool setLocalTime(const LocalClockTime& time) = 0;
  virtual void sleepMs(int milliseconds) = 0;
};

}  // namespace norvane
