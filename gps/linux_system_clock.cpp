#include "gps/linux_system_clock.h"

#include <chrono>
#include <ctime>
#include <thread>

#include "gps/steady_clock.h"

namespace norvane {
namespace {

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int year, int month) {
  static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

}  // namespace

bool IsValidLocalTime(const LocalClockTime& t) {
  if (t.year < 1970 || t.year > 9999 || t.month < 1 || t.month > 12) return false;
  if (t.day < 1 || t.day > daysInMonth(t.year, t.month)) return false;
  if (t.hour < 0 || t.hour > 23 || t.minute < 0 || t.minute > 59) return false;
  return t.second >= 0 && t.second <= 59 && t.milliseconds >= 0 && t.milliseconds <= 999;
}

std::uint32_t LinuxSystemClock::tickCount() { return SteadyClock{}.tickCount(); }

LocalClockTime LinuxSystemClock::localTime() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  std::tm fields{};
  localtime_r(&now.tv_sec, &fields);
  LocalClockTime t;
  t.year = fields.tm_year + 1900;
  t.month = fields.tm_mon + 1;
  t.day = fields.tm_mday;
  t.hour = fields.tm_hour;
  t.minute = fields.tm_min;
  t.second = fields.tm_sec;
  t.milliseconds = static_cast<int>(now.tv_nsec / 1000000);
  return t;
}

bool LinuxSystemClock::setLocalTime(const LocalClockTime& t) {
  if (!IsValidLocalTime(t)) return false;
  std::tm fields{};
  fields.tm_year = t.year - 1900;
  fields.tm_mon = t.month - 1;
  fields.tm_mday = t.day;
  fields.tm_hour = t.hour;
  fields.tm_min = t.minute;
  fields.tm_sec = t.second;
  fields.tm_isdst = -1;
  const std::time_t seconds = std::mktime(&fields);
  if (seconds == static_cast<std::time_t>(-1)) return false;
  timespec value{};
  value.tv_sec = seconds;
  value.tv_nsec = static_cast<long>(t.milliseconds) * 1000000L;
  return clock_settime(CLOCK_REALTIME, &value) == 0;
}

void LinuxSystemClock::sleepMs(int milliseconds) {
  if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace norvane
