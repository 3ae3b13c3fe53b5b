#include <gtest/gtest.h>

#include <chrono>
#include <tuple>
#include <utility>

#include "core/astro/moon.h"
#include "tests/views/view_fixture.h"
#include "ui/surface/builtin_marks.h"
#include "ui/views/gps_page.h"
#include "ui/views/map_view.h"
#include "ui/views/orbit_view.h"
#include "ui/views/sky_projection.h"
#include "ui/views/sky_view.h"

namespace norvane {
namespace {

using test::ViewFixture;

TEST(MapView, ObserverAtZeroZeroAndNoSelection) {
  ViewFixture f;
  f.catalogue->selected.fill(0);
  f.app.observer = {0.0, 0.0, 0.0, 0.0};
  PaintMap(f.world);
  // Row 1, column 2 of the 9 x 9 mark, centred on (120, 160).
  EXPECT_EQ(f.at(118, 157), f.color(kObserverMark[1 * 9 + 2]));
  EXPECT_EQ(f.at(116, 160), f.color(Rgb(80, 120, 190)));  // the prime meridian crosses it
  EXPECT_EQ(f.count(Rgb(0, 255, 0)), 0);                  // no footprint without a satellite
  const MapPoint sun = SunPoint(f.surface, f.app.currentTime);
  EXPECT_EQ(f.at(sun.screen.x, sun.screen.y), f.skins->sun.at(6, 6));
  // The Moon's sub-point longitude runs unreduced (-226 degrees here), yet
  // the Moon stays on the map at every hour of a month.
  f.app.currentTime = 2457867.5416666665;
  PaintMap(f.world);
  const MapPoint moon = MoonPoint(f.surface, f.app.observer, f.app.currentTime);
  EXPECT_EQ(f.at(moon.screen.x, moon.screen.y), f.skins->moon.at(6, 6));
  for (int hour = 0; hour < 30 * 24; ++hour) {
    const Point p = MoonPoint(f.surface, f.app.observer, 2457858.0 + hour / 24.0).screen;
    ASSERT_TRUE(p.y >= 0 && p.y < f.surface.height && p.x >= 0 && p.x < f.surface.width) << hour;
  }
}

TEST(MapView, TapPicksTheFirstInCatalogueOrderAndNothingBeforeATap) {
  ViewFixture f;
  testing::QuietSink sink;
  ASSERT_TRUE(openElementFile(*f.catalogue, sink, std::string(NORVANE_DATA_DIR) + "/iridium_2014-06-21.txt"));
  f.app.currentTime = 2456830.627083333;
  const Point corner = SatellitePoint(f.world, 15, f.app.currentTime, 0).screen;
  ASSERT_LT(corner.x, 7);  // IRIDIUM 921 near the south pole at 180 degrees: the top-left corner
  ASSERT_LT(corner.y, 7);
  PaintMap(f.world);  // the map opened, nothing tapped yet
  EXPECT_EQ(f.app.currentSatellite, 0);

  f.catalogue->satellites[1] = f.catalogue->satellites[0];
  f.catalogue->selected.fill(0);
  f.catalogue->selected[0] = f.catalogue->selected[1] = f.catalogue->selected[15] = 1;
  const Point p = SatellitePoint(f.world, 0, f.app.currentTime, 0).screen;
  f.app.currentSatellite = 5;
  f.app.tapPoint = {p.x + 7, p.y};  // 7 pixels away is not near enough
  PaintMap(f.world);
  EXPECT_EQ(f.app.currentSatellite, 5);
  f.app.tapPoint = {p.x + 6, p.y - 6};
  PaintMap(f.world);
  EXPECT_EQ(f.app.currentSatellite, 0);
  PaintMap(f.world);  // the cleared tap does not pick the satellite in the corner either
  EXPECT_EQ(f.app.currentSatellite, 0);
}

TEST(MapView, GeostationaryMeanMotionHasFootprintButNoTrack) {
  ViewFixture f;
  f.catalogue->selected.fill(0);
  f.catalogue->selected[106] = 1;
  f.app.currentSatellite = 106;  // ISS: footprint and track
  PaintMap(f.world);
  EXPECT_GT(f.count(Rgb(0, 255, 0)), 100);
  EXPECT_GT(f.count(Rgb(250, 250, 0)) + f.count(Rgb(0, 0, 255)), 100);
  Satellite& sat = f.catalogue->satellites[106];
  sat.xno = 0.0045 * 1440.0 / (2 * 3.14159265358979323846);  // rev/day of 0.0045 rad/min
  sat.eo = 0.0002;
  PaintMap(f.world);
  EXPECT_GT(f.count(Rgb(0, 255, 0)), 100);
  EXPECT_EQ(f.count(Rgb(250, 250, 0)) + f.count(Rgb(0, 0, 255)), 0);
}

TEST(SkyView, ClockLabelTapCyclesTheClock) {
  ViewFixture f;
  f.app.viewMode = ViewMode::Sky;
  const SimulationMode expected[3] = {SimulationMode::Pause, SimulationMode::X1, SimulationMode::RealTime};
  for (const SimulationMode mode : expected) {
    f.app.tapPoint = {150, 5};
    PaintSky(f.world);
    EXPECT_EQ(f.app.simulationMode, mode);
    EXPECT_EQ(f.app.tapPoint, (Point{1, 1}));
  }
  f.app.tapPoint = {190, 5};  // just right of the label
  PaintSky(f.world);
  EXPECT_EQ(f.app.simulationMode, SimulationMode::RealTime);
}

TEST(SkyView, BackgroundFollowsTheSun) {
  ViewFixture f;
  f.app.viewMode = ViewMode::Sky;
  PaintSky(f.world);  // 23:00 local: night
  EXPECT_EQ(f.at(2, 60), f.color(Rgb(0, 0, 16)));
  f.app.currentTime = 2457858.0;  // noon UTC
  PaintSky(f.world);
  EXPECT_EQ(f.at(2, 60), f.color(Rgb(0, 0, 120)));
}

// Counts the Moon's lit and dark pixels where the sky view drew it.
std::pair<int, int> MoonShades(const ViewFixture& f) {
  MoonHorizontal horizontal;
  MoonSubPoint sub;
  MoonPosition(f.app.currentTime - kMoonEpoch, f.app.observer, horizontal, sub);
  const auto p = SkyProject({horizontal.azimuth, horizontal.altitude}, 120, 160, 0, f.app.viewMatrix);
  int lit = 0, dark = 0;
  for (std::int32_t row = 0; row < 12; ++row) {
    for (std::int32_t col = 0; col < 12; ++col) {
      if (f.skins->moon.at(col, row) == f.skins->key) continue;
      const std::uint16_t drawn = f.at(p->x - 6 + col, p->y - 6 + row);
      lit += drawn == f.skins->moon.at(col, row) ? 1 : 0;
      dark += drawn == f.skins->moonDark.at(col, row) ? 1 : 0;
    }
  }
  return {lit, dark};
}

TEST(SkyView, MoonPhaseShadesTheDiscNotItsBox) {
  ViewFixture f;
  f.app.viewMode = ViewMode::Sky;
  f.catalogue->selected.fill(0);
  f.app.currentTime = 2457874.0416666665;  // waxing, 22 % lit, 46 degrees up
  PaintSky(f.world);
  auto [lit, dark] = MoonShades(f);
  EXPECT_GT(lit, 0);
  EXPECT_GT(dark, 2 * lit);
  f.app.currentTime = 2457880.375;  // 85 % lit, 36 degrees up
  PaintSky(f.world);
  std::tie(lit, dark) = MoonShades(f);
  EXPECT_GT(dark, 0);
  EXPECT_GT(lit, 2 * dark);
}

TEST(GpsPage, DilutionBarsAndSignalChart) {
  EXPECT_EQ(DilutionBoxes(0.0), 0);
  EXPECT_EQ(DilutionBoxes(2.0), 2);
  EXPECT_EQ(DilutionBoxes(10.0), 3);  // a box fills only above its threshold
  EXPECT_EQ(DilutionBoxes(45.0), 7);
  ViewFixture f;
  f.gps.fixMode = 3;
  f.gps.hdop = 45.0;
  f.gps.prn[0] = 5;
  f.gps.snr[0] = 40;
  f.gps.usedPrn[3] = 5;
  f.gps.prn[1] = 7;
  f.gps.snr[1] = 20;
  PaintGpsPage(f.world, f.app.currentTime);
  const std::uint16_t red = f.color(Rgb(230, 0, 0));
  EXPECT_EQ(f.at(11, 231), red);  // 60 pixels up from 291
  EXPECT_NE(f.at(11, 230), red);
  EXPECT_EQ(f.at(25, 271), f.color(Rgb(140, 140, 140)));  // not used: grey, 20 pixels
  EXPECT_EQ(f.at(73, 103), f.color(Rgb(250, 210, 0)));    // seventh HDOP box
}

TEST(OrbitView, ZoomExtremesStayCheap) {
  ViewFixture f;
  f.app.currentSatellite = 106;
  BuildOrbitScene(f.world);
  PaintOrbit(f.world);
  const int limb = f.count(Rgb(90, 170, 255));
  EXPECT_GT(limb, 100);
  EXPECT_NEAR(f.caches->orbit.pos.w, 6790, 30);  // km
  for (const double zoom : {10000.0, 1e-7}) {
    f.app.viewMatrix.m[3][3] = zoom;
    const auto start = std::chrono::steady_clock::now();
    PaintOrbit(f.world);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  }
}

}  // namespace
}  // namespace norvane
