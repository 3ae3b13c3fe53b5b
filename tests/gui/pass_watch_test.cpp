#include <gtest/gtest.h>

#include <algorithm>

#include "core/astro/julian_date.h"
#include "tests/gui/gui_fixtures.h"
#include "ui/app/pass_watch.h"

namespace norvane {
namespace {

constexpr double kMinute = 1.0 / 1440.0;

struct World {
  World() { testing::LoadBundled(state); }
  bool update() {
    return schedule.update(state.catalogue, state.app.currentSatellite, state.app.observer, state.settings, now);
  }
  // Steps the clock a minute a tick over two hours; the alarms raised, with their tick.
  std::vector<std::pair<double, PlannedPass>> runAlarms() {
    std::vector<std::pair<double, PlannedPass>> raised;
    for (int tick = 0; tick < 120; ++tick, now += kMinute) {
      update();
      for (const PlannedPass& p : alarms.due(schedule.passes(), state.catalogue, state.app.currentSatellite,
                                             state.settings, now)) {
        raised.emplace_back(now, p);
      }
    }
    return raised;
  }
  MainState state;
  PassSchedule schedule;
  PassAlarms alarms;
  double now = JulianDateOfDate(2017, 4, 14, 19, 0, 0);
};

TEST(PassSchedule, PlansAgainOnlyWhenItsInputsChange) {
  World w;
  w.state.catalogue.selected.fill(0);
  w.state.catalogue.selected[2] = 1;
  w.state.app.currentSatellite = 5;  // planned for the next-pass line, though not selected
  ASSERT_TRUE(w.update());
  ASSERT_FALSE(w.schedule.passesOf(5).empty());
  for (const PlannedPass& p : w.schedule.passes()) EXPECT_TRUE(p.slot == 2 || p.slot == 5) << p.slot;

  w.now += 12 * 60 * kMinute;
  EXPECT_FALSE(w.update()) << "a clock inside the planned day";
  w.state.app.observer.lat += 1e-6;  // a few metres, as a GPS fix wanders
  EXPECT_FALSE(w.update());
  w.state.app.observer.lat += 1e-3;  // several kilometres
  EXPECT_TRUE(w.update());
  w.state.catalogue.selected[3] = 1;
  EXPECT_TRUE(w.update());
  w.state.settings.passMinElevation = 10;
  EXPECT_TRUE(w.update());
  w.now += 1.0;
  EXPECT_TRUE(w.update()) << "the clock past the planned day";
  w.now -= 2.0;
  EXPECT_TRUE(w.update()) << "the clock set back";
}

// Each pass once, on the first tick inside the warning time (at once for a
// pass rising sooner than that), for the selected satellites or the current one.
TEST(PassAlarms, OncePerPassInsideTheWarningTimeForTheirScope) {
  World off;
  EXPECT_TRUE(off.runAlarms().empty()) << "0 minutes is off";

  World w;
  w.state.settings.passAlarmMinutes = 5;
  w.state.catalogue.selected[9] = 0;
  w.state.app.currentSatellite = 9;
  const double start = w.now;
  const auto raised = w.runAlarms();
  std::size_t expected = 0;
  for (const PlannedPass& p : w.schedule.passes()) {
    if (p.slot != 9 && p.aos > start && p.aos - 5 * kMinute < start + 119.5 * kMinute) ++expected;
  }
  EXPECT_EQ(raised.size(), expected);
  for (const auto& [when, pass] : raised) {
    EXPECT_NE(pass.slot, 9) << "not selected";
    EXPECT_GE(when, pass.aos - 5 * kMinute - 1e-9) << pass.name;
    EXPECT_LT(when, std::max(pass.aos - 4 * kMinute, start + kMinute / 2)) << pass.name;
  }

  World current;
  current.state.settings.passAlarmMinutes = 10;
  current.state.settings.passAlarmScope = PassAlarms::kCurrent;
  current.state.app.currentSatellite = 7;
  for (const auto& r : current.runAlarms()) EXPECT_EQ(r.second.slot, 7);
}

}  // namespace
}  // namespace norvane
