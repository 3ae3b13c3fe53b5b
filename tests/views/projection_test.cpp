#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/astro/numeric.h"
#include "ui/views/map_projection.h"
#include "ui/views/sky_projection.h"
#include "ui/views/view_matrix.h"

namespace norvane {
namespace {

constexpr double kDegree = kPi / 180.0;

TEST(SkyProject, HorizonZenithAndSwap) {
  const ViewMatrix identity;
  // North on the horizon: at the bottom with the swap off, at the top with it on.
  EXPECT_EQ(SkyProject({0.0, 0.0}, 120, 160, 0, identity), (Point{120, 280}));
  EXPECT_EQ(SkyProject({0.0, 0.0}, 120, 160, 1, identity), (Point{120, 40}));
  // East on the left, at radius R.
  EXPECT_EQ(SkyProject({kPi / 2, 0.0}, 120, 160, 0, identity), (Point{0, 160}));
  // Half way up lies on the 60-pixel circle.
  EXPECT_EQ(SkyProject({kPi, 45 * kDegree}, 120, 160, 0, identity), (Point{120, 100}));
  EXPECT_FALSE(SkyProject({0.0, kPi / 2}, 120, 160, 0, identity));
  EXPECT_FALSE(SkyProject({0.0, -0.001}, 120, 160, 0, identity));
  EXPECT_FALSE(SkyProject({0.0, std::numeric_limits<double>::quiet_NaN()}, 120, 160, 0, identity));
}

TEST(SkyProject, HeadingTurnsTheScreen) {
  ViewMatrix heading;
  SetViewHeading(heading, 0.0);  // a half turn: north goes to the top
  EXPECT_EQ(SkyProject({0.0, 0.0}, 120, 160, 0, heading), (Point{120, 40}));
}

TEST(MapProject, CentreAndWrappedLongitude) {
  EXPECT_EQ(MapProject({0.0, 0.0, 0.0, 0.0}, 240, 320), (Point{120, 160}));
  // 190 degrees east is 170 west, near the top.
  EXPECT_EQ(MapProject({0.0, 190 * kDegree, 0.0, 0.0}, 240, 320).y, 8);
  EXPECT_EQ(MapProject({45 * kDegree, 90 * kDegree, 0.0, 0.0}, 240, 320), (Point{180, 240}));
  EXPECT_EQ(MapProject({std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0, 0.0}, 240, 320).x, -1000000);
}

TEST(CirclePoint, HorizonCircles) {
  // The Sun far above (0, 0): its horizon circle is a quarter turn away.
  const Geodetic sun{0.0, 0.0, 1.5e8, 0.0};
  const Point north = CirclePoint(sun, 0.0, 240, 320);
  EXPECT_NEAR(north.x, 240, 1);
  EXPECT_EQ(north.y, 160);
  const Point east = CirclePoint(sun, 90.0, 240, 320);
  EXPECT_NEAR(east.y, 160 - 80, 1);  // 90 degrees west of the centre for azimuths up to 180
  EXPECT_NEAR(east.x, 120, 1);
  // A Sun above 30 N encloses the north pole: azimuth 0 goes over the pole.
  const Geodetic northernSun{30 * kDegree, 0.0, 1.5e8, 0.0};
  const Point overPole = CirclePoint(northernSun, 0.0, 240, 320);
  EXPECT_EQ(overPole.y, 320);  // longitude exactly 180 is not taken 2 pi lower
  // A satellite 400 km up sees about 20 degrees around it.
  const Geodetic sat{0.0, 0.0, 400.0, 0.0};
  EXPECT_NEAR(CirclePoint(sat, 0.0, 240, 320).x - 120, 20.0 * 240 / 180, 2);
}

TEST(ViewMatrix, ManipulateSteps) {
  ViewMatrix m;
  StylusTrack track;
  ManipulateView(m, track, 10, 20, ViewAction::Press);
  EXPECT_EQ(track.px, 10);
  ManipulateView(m, track, 15, 20, ViewAction::Drag);  // right: 3 degrees between rows 0 and 2
  EXPECT_NEAR(m.m[0][0], 0.9986295347, 1e-12);
  EXPECT_NEAR(m.m[0][2], 0.0523359562, 1e-12);
  EXPECT_NEAR(m.m[1][1], 1.0, 1e-12);  // equal y: no turn
  for (int i = 0; i < 200; ++i) ManipulateView(m, track, 0, 0, ViewAction::ZoomIn);
  EXPECT_EQ(m.zoom(), 10000.0);
  EXPECT_EQ(track.px, 15);  // zooming keeps the previous point
  for (int i = 0; i < 400; ++i) ManipulateView(m, track, 0, 0, ViewAction::ZoomOut);
  EXPECT_EQ(m.zoom(), 1e-7);
  ResetViewMatrix(m);
  ManipulateView(m, track, 0, 0, ViewAction::TurnRight);
  EXPECT_NEAR(m.m[1][0], 0.0523359562, 1e-12);
  EXPECT_NEAR(m.m[0][1], -0.0523359562, 1e-12);
  EXPECT_EQ(m.m[2][2], 1.0);
}

}  // namespace
}  // namespace norvane
