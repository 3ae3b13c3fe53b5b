#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "tests/views/view_fixture.h"
#include "ui/views/info_page.h"

namespace norvane {
namespace {

TEST(InfoPage, ShapeLines) {
  EXPECT_EQ(ShapeLine(99999), "Shape not know. ");  // not in the table: record 0
  EXPECT_EQ(ShapeLine(5), "Shape not know. ");
  EXPECT_EQ(ShapeLine(23560), "Shape not know. ");  // the size file gives no sizes
  EXPECT_EQ(ShapeLine(25544), "l.=109.0m w.=73.0m d.=20.0m");
  EXPECT_EQ(ShapeLine(10594), "l.=0.3m w.=0.9m d.=2.4m");
  EXPECT_EQ(ShapeLine(12), "Cylindrical shape l.=1.2m r.=0.5m");
  EXPECT_EQ(ShapeLine(11), "Spherical satellite r.=0.5m ");
}

TEST(InfoPage, StatusRules) {
  InfoStatusInputs in;
  in.altitude = 800.0;
  in.canRise = true;
  in.elevation = -0.1;
  EXPECT_EQ(InfoStatusCode(in), 3);
  in.elevation = 0.1;
  EXPECT_EQ(InfoStatusCode(in), 0);  // above the horizon needs the geostationary mark for 4
  in.geo = true;
  EXPECT_EQ(InfoStatusCode(in), 7);
  in.geo = false;
  in.dark = true;
  EXPECT_EQ(InfoStatusCode(in), 5);
  in.eclipsed = true;
  EXPECT_EQ(InfoStatusCode(in), 6);
  in.canRise = false;
  in.elevation = -0.2;
  in.eclipsed = false;
  EXPECT_EQ(InfoStatusCode(in), 2);
  in.altitude = 100.0;
  EXPECT_EQ(InfoStatusCode(in), 8);
  in.altitude = -5.0;
  EXPECT_EQ(InfoStatusCode(in), 9);
  in.altitude = 800.0;
  in.elevation = 0.3;
  in.flares = true;
  EXPECT_EQ(InfoStatusCode(in), 10);
  in.modelComparison = true;
  EXPECT_EQ(InfoStatusCode(in), 11);
}

TEST(InfoPage, DopplerLowersBothLinksWhenReceding) {
  EXPECT_EQ(DownlinkLine(137.5, 7.0), "Downlink   137.49679MHz (-3210.55Hz)");
  EXPECT_EQ(UplinkLine(152.5, 7.0).substr(0, 24), "Uplink       152.49644MH");
  EXPECT_EQ(RangeLine(1000.0), "Range 1000.0000 km Delay 3.3356 ms");
  EXPECT_EQ(TableDownlink(29499), 137.0);
  EXPECT_EQ(TableDownlink(25544), 0.0);
}

TEST(InfoPage, WholePageForATableSatellite) {
  const std::string text =
      "NOAA 15                 \r\n"
      "1 25338U 98030A   17104.58156486  .00000481  00000-0  47674-4 0  9990\r\n"
      "2 25338  98.7800 154.7758 0010000 199.7078 157.9879 14.25000000674162\r\n";
  test::ViewFixture f;
  testing::QuietSink sink;
  ASSERT_EQ(readElementFile(*f.catalogue, sink, text, "noaa.txt"), 1);
  f.app.currentTime = 2457858.4;
  f.app.viewMode = ViewMode::Info;
  Settings& settings = f.settings;
  settings.flagColors = 1;
  f.gps.fixMode = 3;
  f.gps.hour = 7;
  f.gps.minute = 5;
  f.gps.second = 9;
  InfoTiming timing;
  const auto lines = FormatInfoPage(f.world, settings, timing, InfoOptions{});
  ASSERT_EQ(lines.size(), 17u);
  EXPECT_EQ(lines[0].left, "Local time 21:36:00");
  EXPECT_EQ(lines[0].right, "2017.04.14");
  EXPECT_EQ(lines[1].right, "TLE 0 days old");
  EXPECT_EQ(lines[2].left, "NOAA 15                 ");
  EXPECT_EQ(lines[2].right, "Cat. nr. 25338");
  EXPECT_EQ(lines[7].left, "Close Earth sat SGP4");
  EXPECT_EQ(settings.downlink, 137.62);
  EXPECT_EQ(settings.uplink, 152.62);
  EXPECT_EQ(lines[9].left.substr(0, 16), "Downlink   137.6");
  EXPECT_EQ(lines[15].left, "3D mode");
  EXPECT_EQ(lines[15].right, "GPS(UTC) time 7:05:09");
  EXPECT_EQ(lines[16].left.substr(0, 17), "Aver. calc. time ");
  EXPECT_EQ(timing.calls, 1u);
  EXPECT_EQ(InfoLineColour(InfoColoursFor(settings), InfoBlock::Doppler), 0u);
  settings.flagColors = 0;
  EXPECT_EQ(InfoLineColour(InfoColoursFor(settings), InfoBlock::Bodies), 25720u);

  // The comparison option: the heading and two lines of differences between
  // the families, under the rule, each family's view the other's negated.
  InfoOptions comparison;
  comparison.modelComparison = true;
  double along[2] = {0, 0};
  for (const int family : {0, 1}) {
    settings.s4s8 = family;
    const auto with = FormatInfoPage(f.world, settings, timing, comparison);
    ASSERT_EQ(with.size(), 19u);
    EXPECT_EQ(with[8].left, family == 0 ? "SxP4-SxP8" : "SxP8-SxP4");
    EXPECT_FALSE(with[8].ruleBelow);
    EXPECT_TRUE(with[10].ruleBelow);
    EXPECT_EQ(with[11].left.substr(0, 9), "Downlink ");
    double distance = 0, speed = 0, radial = 0, cross = 0;
    ASSERT_EQ(std::sscanf(with[9].left.c_str(), "dPos %lf km", &distance), 1);
    ASSERT_EQ(std::sscanf(with[9].right.c_str(), "dVel %lf m/s", &speed), 1);
    ASSERT_EQ(std::sscanf(with[10].left.c_str(), "Radial %lf Along %lf Cross %lf km", &radial, &along[family], &cross),
              3);
    // Near the element epoch the two families agree to within a few km.
    EXPECT_GT(distance, 0.001);
    EXPECT_LT(distance, 10.0);
    EXPECT_GT(speed, 0.0);
    EXPECT_NEAR(distance * distance, radial * radial + along[family] * along[family] + cross * cross,
                0.01 * distance * distance + 1e-4);
  }
  EXPECT_NEAR(along[0], -along[1], 0.05 * std::fabs(along[0]) + 0.01);
}

}  // namespace
}  // namespace norvane
