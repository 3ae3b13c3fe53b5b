#include <gtest/gtest.h>

#include <algorithm>

#include "core/astro/julian_date.h"
#include "tests/gui/gui_fixtures.h"
#include "ui/app/pass_watch.h"

namespace norvane {
namespace {

constexpr double kMinute = 1.0 / 1440.0;

struct World {
  World() {
    testing::LoadBundled(state);
    now = JulianDateOfDate(2017, 4, 14, 19, 0, 0);
  }
  bool update() {
    return schedule.update(state.catalogue, state.app.currentSatellite, state.app.observer, state.settings, now);
  }
  MainState state;
  PassSchedule schedule;
  double now = 0;
};

// The plan is made again only when something it depends on changes.
TEST(PassSchedule, PlansAgainOnlyWhenItsInputsChange) {
  World w;
  ASSERT_TRUE(w.update());
  ASSERT_FALSE(w.schedule.passes().empty());
  EXPECT_TRUE(std::is_sorted(w.schedule.passes().begin(), w.schedule.passes().end(),
                             [](const PlannedPass& a, const PlannedPass& b) { return a.aos < b.aos; }));
  w.now += 12 * 60 * kMinute;
  EXPECT_FALSE(w.update()) << "a clock inside the planned day";
  w.state.app.observer.lat += 1e-6;  // a few metres, as a GPS fix wanders
  EXPECT_FALSE(w.update());

  w.state.app.observer.lat += 1e-3;  // several kilometres
  EXPECT_TRUE(w.update());
  w.state.catalogue.selected[3] = 0;
  EXPECT_TRUE(w.update());
  w.state.settings.passMinElevation = 10;
  EXPECT_TRUE(w.update());
  EXPECT_TRUE(std::all_of(w.schedule.passes().begin(), w.schedule.passes().end(),
                          [](const PlannedPass& p) { return p.tcaElevation >= 10 - 1e-9 || p.inProgressAtStart; }));
  w.now += 30 * 60 * kMinute;
  EXPECT_TRUE(w.update()) << "the clock past the planned day";
  w.now -= 2.0;
  EXPECT_TRUE(w.update()) << "the clock set back";
}

// The current satellite is planned even when it is not selected; an
// unselected one that is not current is not.
TEST(PassSchedule, CoversTheSelectionAndTheCurrentSatellite) {
  World w;
  w.state.catalogue.selected.fill(0);
  w.state.catalogue.selected[2] = 1;
  w.state.app.currentSatellite = 5;
  w.update();
  for (const PlannedPass& p : w.schedule.passes()) EXPECT_TRUE(p.slot == 2 || p.slot == 5) << p.slot;
  EXPECT_FALSE(w.schedule.passesOf(5).empty());
  for (const PlannedPass& p : w.schedule.passesOf(5)) EXPECT_EQ(p.slot, 5);
}

// Steps the clock a minute a tick over two hours and collects the alarms.
std::vector<std::pair<double, PlannedPass>> RunAlarms(World& w, PassAlarms& alarms) {
  std::vector<std::pair<double, PlannedPass>> raised;
  for (int tick = 0; tick < 120; ++tick) {
    w.update();
    for (const PlannedPass& p : alarms.due(w.schedule.passes(), w.state.catalogue, w.state.app.currentSatellite,
                                          w.state.settings, w.now)) {
      raised.emplace_back(w.now, p);
    }
    w.now += kMinute;
  }
  return raised;
}

TEST(PassAlarms, RaiseOncePerPassInsideTheWarningTime) {
  World w;
  w.state.settings.passAlarmMinutes = 5;
  PassAlarms alarms;
  const double start = w.now;
  const auto raised = RunAlarms(w, alarms);
  ASSERT_FALSE(raised.empty());
  std::size_t expected = 0;
  for (const PlannedPass& p : w.schedule.passes()) {
    // Passes rising within the first five minutes are announced at once.
    if (p.aos > start && p.aos - 5 * kMinute < start + 119.5 * kMinute && !p.inProgressAtStart) ++expected;
  }
  EXPECT_EQ(raised.size(), expected);
  for (const auto& [when, pass] : raised) {
    EXPECT_GE(when, pass.aos - 5 * kMinute - 1e-9) << pass.name;
    EXPECT_LT(when, std::max(pass.aos - 4 * kMinute, start + kMinute / 2)) << pass.name
                                                                            << ": the first tick inside the warning time";
    const int same = static_cast<int>(std::count_if(raised.begin(), raised.end(), [&](const auto& r) {
      return r.second.slot == pass.slot && r.second.aos == pass.aos;
    }));
    EXPECT_EQ(same, 1) << pass.name;
  }
}

TEST(PassAlarms, FollowTheScopeAndTheSwitch) {
  World w;
  PassAlarms alarms;
  EXPECT_TRUE(RunAlarms(w, alarms).empty()) << "0 minutes is off";

  World current;
  current.state.settings.passAlarmMinutes = 10;
  current.state.settings.passAlarmScope = PassAlarms::kCurrent;
  current.state.app.currentSatellite = 7;
  PassAlarms only;
  const auto raised = RunAlarms(current, only);
  for (const auto& r : raised) EXPECT_EQ(r.second.slot, 7);

  World some;
  some.state.settings.passAlarmMinutes = 10;
  some.state.catalogue.selected.fill(0);
  some.state.catalogue.selected[7] = 1;
  some.state.app.currentSatellite = 9;  // planned for the line, but not selected
  PassAlarms selected;
  for (const auto& r : RunAlarms(some, selected)) EXPECT_EQ(r.second.slot, 7);
}

TEST(PassAlarms, TextNamesTheSatelliteAndThePass) {
  PlannedPass p;
  p.name = "ISS (ZARYA)";
  p.aos = JulianDateOfDate(2017, 4, 14, 21, 34, 5);
  p.tca = p.aos + 5 * kMinute;
  p.los = p.aos + 10 * kMinute;
  p.aosAzimuth = 250;
  p.tcaElevation = 67.4;
  p.losAzimuth = 80;
  const AlarmText t = AlarmTextOf(p, p.aos - 5 * kMinute, 2.0 / 24);
  EXPECT_EQ(t.summary, "ISS (ZARYA) rises in 5 min");
  EXPECT_EQ(t.body, "AOS 23:34:05 at 250°, max 67° at 23:39:05, LOS 23:44:05 at 80°");
}

}  // namespace
}  // namespace norvane
