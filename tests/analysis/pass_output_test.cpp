// What the window and the calendar export make of a pass list.
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <string>
#include <vector>

#include "analysis_fixtures.h"
#include "core/analysis/next_pass_line.h"
#include "core/analysis/pass_calendar.h"

namespace norvane {
namespace {

constexpr double kSecond = 1.0 / 86400.0;

PlannedPass pass(double aos, double los, double maxElevation) {
  PlannedPass p;
  p.slot = 3;
  p.catnr = 25544;
  p.name = "ISS (ZARYA)";
  p.aos = aos;
  p.tca = 0.5 * (aos + los);
  p.los = los;
  p.tcaElevation = maxElevation;
  return p;
}

TEST(NextPassLine, BeforeDuringAfterAndNeverSetting) {
  const double aos = 2457858.5 + (21 * 3600 + 34 * 60 + 5) * kSecond;  // 21:34:05 UTC
  const std::vector<PlannedPass> passes{pass(aos - 0.1, aos - 0.09, 12.0), pass(aos, aos + 600 * kSecond, 66.6)};
  EXPECT_EQ(nextPassLine(passes, aos - (12 * 60 + 31) * kSecond, 0), "AOS 21:34:05 in 12:31, max 67°");
  // Local time two hours ahead, and a wait over an hour.
  EXPECT_EQ(nextPassLine(passes, aos - 0.085, 2.0 / 24), "AOS 23:34:05 in 2:02:24, max 67°");
  EXPECT_EQ(nextPassLine(passes, aos + (600 - 242) * kSecond, 0), "in view, LOS in 4:02");
  EXPECT_EQ(nextPassLine(passes, aos + 601 * kSecond, 0), "");
  PlannedPass up = pass(aos, aos + 1, 30);
  up.neverSets = up.inProgressAtStart = up.endsAfterSpan = true;
  EXPECT_EQ(nextPassLine({up}, aos + 0.5, 0), "in view, never sets");
  up.neverSets = false;
  EXPECT_EQ(nextPassLine({up}, aos + 0.5, 0), "in view, LOS in over 12:00:00");
}

// The calendar read back with libical: one event per pass with its times and
// summary, and the description naming the visible part.
TEST(PassCalendar, ReadsBackAsOneEventPerPass) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const Geodetic observer{54 * 0.017453292519943295, 0.17, 0.1, 0};
  const std::vector<int> slots{test::kIssSlot, 111};
  const auto passes = planCataloguePasses(*catalogue, slots, observer, test::kVisualEpoch, test::kVisualEpoch + 2, {});
  ASSERT_GT(passes.size(), 5u);
  testing::TempFolder folder;
  const std::string path = folder / "passes.ics";
  ASSERT_TRUE(writePassCalendar(path, passes, test::kVisualEpoch));
  icalcomponent* calendar = icalparser_parse_string(testing::ReadFile(path).c_str());
  ASSERT_NE(calendar, nullptr);
  EXPECT_EQ(icalcomponent_check_restrictions(calendar), 1);
  std::size_t i = 0;
  for (icalcomponent* e = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT); e != nullptr;
       e = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT), ++i) {
    ASSERT_LT(i, passes.size());
    const PlannedPass& p = passes[i];
    EXPECT_EQ(icaltime_as_timet(icalcomponent_get_dtstart(e)), std::llround((p.aos - 2440587.5) * 86400));
    EXPECT_EQ(icaltime_as_timet(icalcomponent_get_dtend(e)), std::llround((p.los - 2440587.5) * 86400));
    EXPECT_TRUE(icaltime_is_utc(icalcomponent_get_dtstart(e)));
    const std::string summary = icalcomponent_get_summary(e);
    EXPECT_EQ(summary.rfind(p.name + " pass, max ", 0), 0u) << summary;
    EXPECT_EQ(std::string(icalcomponent_get_description(e)).find("Visible") != std::string::npos, p.visible);
  }
  EXPECT_EQ(i, passes.size());
  icalcomponent_free(calendar);
}

}  // namespace
}  // namespace norvane
