#include "ui/app/clock_tick.h"

#include "core/astro/julian_date.h"

namespace norvane {
namespace {

constexpr double kDegreeFactor = 0.0174532925199433;

void AdvanceClock(AppState& app, const CalendarTime& utc) {
  switch (app.simulationMode) {
    case SimulationMode::RealTime:
      app.currentTime = JulianDateOfDate(utc.year, utc.month, utc.day, utc.hour, utc.minute, utc.second);
      break;
    case SimulationMode::Pause: app.currentTime = app.pausedTime; break;
    default: app.currentTime += ClockStep(app.simulationMode); break;
  }
}

void FollowGps(AppState& app, const GpsData& gps) {
  if (app.gpsTracking != 1 || gps.fixMode != 3) return;
  app.observer.lat = gps.latitude * kDegreeFactor;
  app.observer.lon = gps.longitude * kDegreeFactor;
  // The altitude in metres gets the angles' factor too: the tracker does this.
  app.observer.alt = gps.altitude * kDegreeFactor;
}

}  // namespace

double ClockStep(SimulationMode mode) {
  switch (mode) {
    case SimulationMode::X1: return 1.0 / 86400.0;
    case SimulationMode::X10: return 10.0 / 86400.0;
    case SimulationMode::X30: return 30.0 / 86400.0;
    case SimulationMode::X60: return 60.0 / 86400.0;
    default: return 0.0;
  }
}

double UtcOffsetOf(const CalendarTime& local, const CalendarTime& utc) {
  return JulianDateOfDate(local.year, local.month, local.day, local.hour, 0, 0) -
         JulianDateOfDate(utc.year, utc.month, utc.day, utc.hour, 0, 0);
}

ScreenRequest Tick(MainState& state, const CalendarTime& systemUtc) {
  AppState& app = state.app;
  AdvanceClock(app, systemUtc);
  FollowGps(app, state.gps);
  ScreenRequest request = ScreenRequest::none();
  switch (app.viewMode) {
    case ViewMode::Info:
    case ViewMode::Map:
    case ViewMode::Orbit:
    case ViewMode::Gps: request = ScreenRequest::paint(); break;
    case ViewMode::Sky:
      if (state.settings.gpsCompass != 0 && app.gpsTracking == 1 && state.gps.speed > 1.0) {
        SetViewHeading(app.viewMatrix, -state.gps.course * kDegreeFactor);
      }
      if (state.tickCounter > 2) state.tickCounter = 0;
      request = ScreenRequest::paint();
      break;
    case ViewMode::LeaveFullScreen:
      request = ScreenRequest::standard();
      app.viewMode = ViewMode::Info;
      break;
  }
  state.tickCounter = static_cast<std::int16_t>(state.tickCounter + 1);
  if (app.gpsTracking == 0 || state.tickCounter > 3) state.tickCounter = 0;
  return request;
}

}  // namespace norvane
