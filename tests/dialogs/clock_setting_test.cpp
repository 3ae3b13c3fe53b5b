#include <gtest/gtest.h>

#include "../download/recording_sink.h"
#include "gps/clock_setting.h"
#include "gps/linux_system_clock.h"

namespace norvane {
namespace {

// A clock that records what it is asked to do instead of doing it.
struct FakeClock : SystemClock {
  std::uint32_t tickCount() override { return ticks; }
  LocalClockTime localTime() override { return now; }
  bool setLocalTime(const LocalClockTime& t) override {
    written.push_back(t);
    return accept && IsValidLocalTime(t);
  }
  void sleepMs(int ms) override { slept.push_back(ms); }

  std::uint32_t ticks = 5000;
  LocalClockTime now{2024, 3, 1, 10, 20, 30, 456};
  bool accept = true;
  std::vector<LocalClockTime> written;
  std::vector<int> slept;
};

GpsData fix(int hour, int minute, int second, int hundredths) {
  GpsData gps;
  gps.year = 2024, gps.month = 6, gps.day = 15;
  gps.hour = static_cast<std::int16_t>(hour), gps.minute = static_cast<std::int16_t>(minute);
  gps.second = static_cast<std::int16_t>(second), gps.hundredths = static_cast<std::int16_t>(hundredths);
  gps.timeStamp = 4800;
  return gps;
}

TEST(ClockSetting, TrackingOffOnlyWarns) {
  FakeClock clock;
  testing::RecordingSink sink;
  std::uint32_t delay = 7;
  const GpsClockResult r = SetClockFromGps(fix(10, 0, 0, 0), 0, 0.0, clock, delay, sink);
  EXPECT_EQ(r.outcome, GpsClockOutcome::TrackingOff);
  ASSERT_EQ(sink.shown.size(), 1u);
  EXPECT_EQ(sink.shown[0].text, "Turn GPS tracking on!");
  EXPECT_EQ(sink.shown[0].title, "Warning");
  EXPECT_TRUE(clock.written.empty());
  EXPECT_EQ(delay, 7u);
}

TEST(ClockSetting, WritesTheGpsSecondRoundedUpAfterTheWait) {
  FakeClock clock;
  testing::RecordingSink sink;
  std::uint32_t delay = 0;
  // delay 5000 - 4800 + 10 = 210 ms; 210 + 12000 + 34 + 999 = 13243 -> second 13, wait 1000 - 243
  const GpsClockResult r = SetClockFromGps(fix(8, 21, 12, 34), 1, 2.0 / 24.0, clock, delay, sink);
  EXPECT_EQ(r.outcome, GpsClockOutcome::Set);
  EXPECT_EQ(delay, 210u);
  ASSERT_EQ(clock.slept.size(), 1u);
  EXPECT_EQ(clock.slept[0], 757);
  ASSERT_EQ(clock.written.size(), 1u);
  const LocalClockTime& t = clock.written[0];
  EXPECT_EQ(t.year, 2024);
  EXPECT_EQ(t.month, 6);
  EXPECT_EQ(t.day, 15);
  EXPECT_EQ(t.hour, 10);
  EXPECT_EQ(t.minute, 21);
  EXPECT_EQ(t.second, 13);
  EXPECT_EQ(t.milliseconds, 456);  // kept as read
  EXPECT_EQ(r.correctionSeconds, (21 - 20) * 60 + 13 - 30);
  EXPECT_EQ(sink.shown.back().text, "Clock set to GPS atomic time!!!");
  EXPECT_EQ(sink.shown.back().title, "Time");
}

TEST(ClockSetting, HourAndMinuteQuirksAndFailure) {
  FakeClock clock;
  testing::RecordingSink sink;
  std::uint32_t delay = 0;
  // 23:30 GPS with +2 h gives 25, replaced by 0 on the GPS date.
  SetClockFromGps(fix(23, 30, 0, 0), 1, 2.0 / 24.0, clock, delay, sink);
  EXPECT_EQ(clock.written.back().hour, 0);
  EXPECT_EQ(clock.written.back().day, 15);
  // 22:xx with +2 h gives 24, which no clock takes.
  SetClockFromGps(fix(22, 30, 0, 0), 1, 2.0 / 24.0, clock, delay, sink);
  EXPECT_EQ(clock.written.back().hour, 24);
  EXPECT_EQ(sink.shown.back().text, "Clock not set!!");
  EXPECT_EQ(sink.shown.back().title, "");
  EXPECT_EQ(sink.shown.back().icon, MessageIcon::Stop);
  // Second 59 and a delay push past the minute: second - 60, minute + 1 without carry.
  SetClockFromGps(fix(12, 59, 59, 50), 1, 0.0, clock, delay, sink);
  EXPECT_EQ(clock.written.back().second, 0);
  EXPECT_EQ(clock.written.back().minute, 60);
  EXPECT_EQ(sink.shown.back().text, "Clock not set!!");
}

TEST(ClockSetting, ValidLocalTimes) {
  EXPECT_TRUE(IsValidLocalTime({2024, 2, 29, 23, 59, 59, 999}));
  EXPECT_FALSE(IsValidLocalTime({2023, 2, 29, 12, 0, 0, 0}));
  EXPECT_FALSE(IsValidLocalTime({2024, 1, 1, -1, 0, 0, 0}));
  EXPECT_FALSE(IsValidLocalTime({0, 0, 0, 0, 0, 0, 0}));  // an empty GPS date
}

}  // namespace
}  // namespace norvane
