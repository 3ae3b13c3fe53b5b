#include <gtest/gtest.h>

#include <fstream>
#include <memory>

#include "core/astro/julian_date.h"
#include "settings/settings_io.h"
#include "tests/gui/gui_fixtures.h"
#include "ui/app/clock_tick.h"
#include "ui/app/program_options.h"
#include "ui/app/start_up.h"
#include "ui/app/window_input.h"

namespace norvane {
namespace {

using testing::FakeHost;
using testing::RecordingSink;
using testing::TempFolder;

constexpr CalendarTime kNoon{2017, 4, 14, 12, 0, 0};

std::unique_ptr<MainState> Fresh() {
  auto state = std::make_unique<MainState>();
  state->app.viewMode = ViewMode::Info;
  return state;
}

TEST(Tick, ClockModes) {
  auto s = Fresh();
  Tick(*s, kNoon);
  EXPECT_DOUBLE_EQ(s->app.currentTime, JulianDateOfDate(2017, 4, 14, 12, 0, 0));
  s->app.simulationMode = SimulationMode::Pause;
  s->app.pausedTime = 2450000.25;
  Tick(*s, kNoon);
  EXPECT_EQ(s->app.currentTime, 2450000.25);
  s->app.simulationMode = SimulationMode::X60;
  for (int i = 0; i < 10; ++i) Tick(*s, kNoon);
  EXPECT_NEAR((s->app.currentTime - 2450000.25) * 86400.0, 600.0, 1e-4);
  EXPECT_EQ(ClockStep(SimulationMode::X1), 1.1574074074074073e-5);
  EXPECT_EQ(ClockStep(SimulationMode::X30), 0.00034722222222222224);
}

TEST(Tick, GpsFixMovesObserverWithAltitudeInDegreeUnits) {
  auto s = Fresh();
  s->gps.fixMode = 3;
  s->gps.latitude = 10.0;
  s->gps.longitude = -20.0;
  s->gps.altitude = 100.0;  // metres
  Tick(*s, kNoon);
  EXPECT_DOUBLE_EQ(s->app.observer.lat, 10.0 * 0.0174532925199433);
  EXPECT_DOUBLE_EQ(s->app.observer.lon, -20.0 * 0.0174532925199433);
  EXPECT_DOUBLE_EQ(s->app.observer.alt, 100.0 * 0.0174532925199433);
  s->gps.fixMode = 2;
  s->gps.latitude = 30.0;
  Tick(*s, kNoon);
  EXPECT_DOUBLE_EQ(s->app.observer.lat, 10.0 * 0.0174532925199433);
  s->gps.fixMode = 3;
  s->app.gpsTracking = 0;
  Tick(*s, kNoon);
  EXPECT_DOUBLE_EQ(s->app.observer.lat, 10.0 * 0.0174532925199433);
}

TEST(Tick, CompassAndPhaseCounter) {
  auto s = Fresh();
  s->app.viewMode = ViewMode::Sky;
  s->settings.gpsCompass = 1;
  s->gps.speed = 2.0;
  s->gps.course = 90.0;
  Tick(*s, kNoon);
  ViewMatrix expected;
  SetViewHeading(expected, -90.0 * 0.0174532925199433);
  EXPECT_EQ(s->app.viewMatrix.m, expected.m);
  EXPECT_EQ(s->tickCounter, 1);
  s->tickCounter = 3;  // the sky view folds 3 back to 0 before counting
  Tick(*s, kNoon);
  EXPECT_EQ(s->tickCounter, 1);
  s->app.viewMode = ViewMode::Map;
  s->tickCounter = 3;
  Tick(*s, kNoon);
  EXPECT_EQ(s->tickCounter, 0);
  s->app.gpsTracking = 0;
  Tick(*s, kNoon);
  EXPECT_EQ(s->tickCounter, 0);
  s->app.viewMode = ViewMode::LeaveFullScreen;
  EXPECT_EQ(Tick(*s, kNoon), ScreenRequest::standard());
  EXPECT_EQ(s->app.viewMode, ViewMode::Info);
}

TEST(Keys, UpStopsAtEntryOneAndDownAtTheLast) {
  auto s = Fresh();
  testing::LoadBundled(*s);
  s->catalogue.selected.fill(0);
  s->catalogue.selected[0] = 1;
  s->app.currentSatellite = 3;
  KeyDown(*s, kKeyUp);
  EXPECT_EQ(s->app.currentSatellite, 3);
  s->app.currentSatellite = 1;
  KeyDown(*s, kKeyUp);
  EXPECT_EQ(s->app.currentSatellite, 0);
  s->catalogue.selected[5] = 1;
  s->app.tapPicked = 1;
  KeyDown(*s, kKeyDown);
  EXPECT_EQ(s->app.currentSatellite, 5);
  EXPECT_EQ(s->app.tapPicked, 0);
  KeyDown(*s, kKeyDown);
  EXPECT_EQ(s->app.currentSatellite, 5);
  s->app.currentSatellite = 179;
  s->catalogue.satelliteCount = 181;
  KeyDown(*s, kKeyDown);  // never past the last selection flag
  EXPECT_EQ(s->app.currentSatellite, 179);
}

TEST(Keys, ArrowsTurnTheSkyAndZoomTheOrbit) {
  auto s = Fresh();
  s->app.viewMode = ViewMode::Sky;
  EXPECT_EQ(KeyDown(*s, kKeyLeft), ScreenRequest::paint());
  EXPECT_NEAR(s->app.viewMatrix.m[0][1], 0.0523359562, 1e-9);
  EXPECT_EQ(s->app.dragActive, 0);
  s->app.viewMode = ViewMode::Orbit;
  KeyDown(*s, kKeyRight);
  EXPECT_DOUBLE_EQ(s->app.viewMatrix.zoom(), 1.1);
  EXPECT_EQ(s->app.dragActive, 1);
  KeyUp(*s, kKeyRight);
  EXPECT_EQ(s->app.dragActive, 0);
  EXPECT_EQ(KeyDown(*s, kKeyReturn), ScreenRequest::standard());
  EXPECT_EQ(s->app.viewMode, ViewMode::Info);
}

TEST(Stylus, ZoomedPointsAndCornerTaps) {
  EXPECT_EQ(ToFrameBuffer(471, 629, 480, 640, 240, 320), (Point{235, 314}));
  auto s = Fresh();
  s->app.viewMode = ViewMode::Map;
  EXPECT_EQ(StylusDown(*s, {235, 5}), ScreenRequest::none());
  EXPECT_EQ(s->app.viewMode, ViewMode::Map);
  EXPECT_EQ(StylusDown(*s, {235, 315}), ScreenRequest::standard());
  EXPECT_EQ(s->app.viewMode, ViewMode::Info);
  for (ViewMode mode : {ViewMode::Sky, ViewMode::Orbit, ViewMode::Gps}) {
    s->app.viewMode = mode;
    StylusDown(*s, {231, 9});
    EXPECT_EQ(s->app.viewMode, ViewMode::Info);
  }
  s->app.viewMode = ViewMode::Orbit;
  StylusDown(*s, {100, 100});
  EXPECT_EQ(StylusMove(*s, {110, 90}), ScreenRequest::paint());
  EXPECT_NE(s->app.viewMatrix.m[0][0], 1.0);
  EXPECT_EQ(s->app.dragActive, 1);
  StylusUp(*s);
  EXPECT_EQ(s->app.dragActive, 0);
}

TEST(StartUp, WholeHourOffsetSettingsAndSelection) {
  EXPECT_NEAR(UtcOffsetOf({2017, 4, 14, 17, 30, 0}, {2017, 4, 14, 12, 0, 0}), 5.0 / 24.0, 1e-9);
  TempFolder home;
  std::ofstream(home / "Select.bol", std::ios::binary).write(std::string(720, '\0').data(), 720);
  MemorySettingsStore store;
  const std::string path = home / "Iridium.txt";
  std::filesystem::copy_file(testing::BundledElements(), path);
  Settings saved;
  saved.lastOpen = path;
  saved.flares = 1;
  saveLastFileGroup(saved, store);
  saveSettingsGroup(saved, store);
  auto s = std::make_unique<MainState>();
  s->programFolder = home.path;
  RecordingSink sink;
  CreateMainState(*s, store, sink, kNoon, kNoon);
  EXPECT_EQ(s->app.viewMode, ViewMode::LeaveFullScreen);
  EXPECT_GT(s->catalogue.satelliteCount, 100);
  EXPECT_EQ(s->catalogue.selected[0], 0);  // from Select.bol
  EXPECT_EQ(s->app.iridiumFile, 0);        // only "iridium" counts at start-up
  EXPECT_EQ(s->app.flaresEnabled, 0);
}

TEST(Commands, ViewsDialogsHelpAndClose) {
  auto s = Fresh();
  FakeHost host;
  MemorySettingsStore store;
  RecordingSink sink;
  s->app.viewMatrix.m[0][0] = 5;
  EXPECT_EQ(RunCommand(*s, kCmdSkyView, host, store, sink), ScreenRequest::full());
  EXPECT_EQ(s->app.viewMode, ViewMode::Sky);
  EXPECT_EQ(s->app.viewMatrix.m[0][0], 1.0);
  RunCommand(*s, kCmdGpsView, host, store, sink);
  EXPECT_EQ(s->app.viewMode, ViewMode::Gps);
  EXPECT_EQ(RunCommand(*s, kCmdPredict, host, store, sink), ScreenRequest::standard());
  EXPECT_EQ(s->app.viewMode, ViewMode::Info);
  EXPECT_EQ(host.dialogs, std::vector<int>{kCmdPredict});
  RunCommand(*s, kCmdHelp, host, store, sink);
  EXPECT_EQ(sink.texts(), std::vector<std::string>{"Incorrect Norvane pragram path!"});
  s->programFolder = "/opt/nv";
  RunCommand(*s, kCmdHelp, host, store, sink);
  EXPECT_EQ(host.documents, std::vector<std::string>{"/opt/nv/Help.htm"});
  RunCommand(*s, kCmdClose, host, store, sink);
  EXPECT_EQ(store.writes, 0);  // no file opened: nothing saved
  s->settings.lastOpen = "/x/a.txt";
  s->app.currentSatellite = 4;
  RunCommand(*s, kCmdClose, host, store, sink);
  EXPECT_EQ(store.writes, 1);
  EXPECT_EQ(store.values.count("Sat_Display"), 1u);
  EXPECT_EQ(host.closes, 2);
}

TEST(Commands, OpenAndExit) {
  TempFolder home;
  auto s = Fresh();
  s->programFolder = home.path;
  FakeHost host;
  MemorySettingsStore store;
  RecordingSink sink;
  s->app.currentSatellite = 3;
  RunCommand(*s, kCmdOpen, host, store, sink);  // cancelled
  EXPECT_EQ(s->app.currentSatellite, 0);
  EXPECT_TRUE(sink.texts().empty());
  const std::string gps = home / "gps-ops.txt";
  std::filesystem::copy_file(testing::BundledElements(), gps);
  host.chosen = gps;
  RunCommand(*s, kCmdOpen, host, store, sink);
  ASSERT_EQ(sink.texts().size(), 1u);
  EXPECT_EQ(sink.titles()[0], "Info");
  EXPECT_EQ(s->settings.downlink, 1227.6);
  EXPECT_EQ(s->settings.uplink, 1575.42);
  EXPECT_EQ(s->settings.lastOpen, gps);
  RunCommand(*s, kCmdExit, host, store, sink);
  EXPECT_EQ(std::filesystem::file_size(home / "Select.bol"), 720u);
  EXPECT_EQ(host.closes, 1);
}

TEST(ProgramOptions, CommandLine) {
  ProgramOptions o;
  EXPECT_FALSE(ParseProgramOptions({"--tle", "a.txt", "--time", "2017-04-14 20:00:00", "--clock", "pause", "--zoom", "3"}, o));
  EXPECT_EQ(*o.tle, "a.txt");
  EXPECT_EQ(*o.zoom, 3);
  AppState app;
  ApplyClockOptions(o, app);
  EXPECT_EQ(app.simulationMode, SimulationMode::Pause);
  EXPECT_EQ(app.pausedTime, JulianDateOfDate(2017, 4, 14, 20, 0, 0));
  ProgramOptions bad;
  EXPECT_TRUE(ParseProgramOptions({"--zoom", "5"}, bad));
  EXPECT_TRUE(ParseProgramOptions({"--clock", "x2"}, bad));
  EXPECT_TRUE(ParseProgramOptions({"--time", "2017-04-14"}, bad));
  EXPECT_TRUE(ParseProgramOptions({"--server", "ftp://example.org"}, bad));
  ProgramOptions server;
  EXPECT_FALSE(ParseProgramOptions({"--server", "http://127.0.0.1:8080/mirror"}, server));
  EXPECT_EQ(*server.server, "http://127.0.0.1:8080/mirror");
  EXPECT_EQ(ProgramFolder("/h", "/d"), "/h");
  EXPECT_EQ(ProgramFolder("", "/d"), "/d/Norvane");
}

}  // namespace
}  // namespace norvane
