#include "gps/clock_setting.h"

#include "core/astro/numeric.h"

namespace norvane {

GpsClockResult SetClockFromGps(const GpsData& gps, std::int32_t tracking, double utcOffset, SystemClock& clock,
                               std::uint32_t& lastDelayMs, MessageSink& messages) {
  GpsClockResult result;
  if (tracking != 1) {
    messages.show("Turn GPS tracking on!", "Warning", MessageIcon::Information);
    return result;
  }
  LocalClockTime t = clock.localTime();
  t.year = gps.year;
  t.month = gps.month;
  t.day = gps.day;
  // The offset's whole hours are added without carrying into the date: 24
  // and negative hours stay and make the clock call fail.
  const int hour = gps.hour + Round(utcOffset * 24.0);
  t.hour = hour < 25 ? hour : 0;
  const int oldMinute = t.minute;
  const int oldSecond = t.second;
  t.minute = gps.minute;

  const std::uint32_t delay = clock.tickCount() - gps.timeStamp + 10u;
  lastDelayMs = delay;
  result.delayMs = delay;
  // Hundredths are added as milliseconds; the 999 rounds up to the next second.
  const std::int64_t total = static_cast<std::int64_t>(delay) + 1000 * static_cast<std::int64_t>(gps.second) +
                             gps.hundredths + 999;
  const std::int64_t wholeSeconds = total / 1000;
  clock.sleepMs(1000 - static_cast<int>(total % 1000));
  if (wholeSeconds >= 60) {
    t.second = static_cast<int>(wholeSeconds - 60);
    t.minute += 1;  // no carry into the hour
  } else {
    t.second = static_cast<int>(wholeSeconds);
  }
  result.written = t;
  if (!clock.setLocalTime(t)) {
    result.outcome = GpsClockOutcome::NotSet;
    messages.show("Clock not set!!", "", MessageIcon::Stop);
    return result;
  }
  result.outcome = GpsClockOutcome::Set;
  messages.show("Clock set to GPS atomic time!!!", "Time", MessageIcon::Information);
  result.correctionSeconds = (t.minute - oldMinute) * 60 + t.second - oldSecond;
  return result;
}

}  // namespace norvane
