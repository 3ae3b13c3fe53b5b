#pragma once
#include <cstdint>

#include "core/astro/geodetic.h"
#include "ui/surface/point.h"
#include "ui/views/view_matrix.h"

namespace norvane {

// Which view the window shows.
enum class ViewMode : std::int16_t {
  Info = 0,
  Map = 1,
  Sky = 2,
  Orbit = 3,
  LeaveFullScreen = 4,
  Gps = 5
};

// How the clock runs.
enum class SimulationMode : std::int16_t {
  RealTime = 0,
  Pause = 1,
  X1 = 2,
  X10 = 3,
  X30 = 4,
  X60 = 5
};

// The tap point of no tap: far enough off the screen that no satellite
// marker is ever within picking distance of it.
inline constexpr Point kNoTap{-32768, -32768};

// The application state the views read and, for taps, change. The main
// window owns one and passes it to every paint.
struct AppState {
  ViewMode viewMode = ViewMode::LeaveFullScreen;
  SimulationMode simulationMode = SimulationMode::RealTime;
  double currentTime = 0.0;  // jd, UTC
  double pausedTime = 0.0;   // jd, UTC
  double utcOffset = 0.0;    // days, local minus UTC
  std::int32_t currentSatellite = 0;
  std::int32_t tapPicked = 0;
  std::int32_t dragActive = 0;
  Point tapPoint = kNoTap;  // frame-buffer pixels
  std::int32_t gpsTracking = 1;
  std::int32_t iridiumFile = 0;
  std::int32_t flaresEnabled = 0;
  ViewMatrix viewMatrix;
  StylusTrack stylus;
  Geodetic observer{0.9477539264057168, 0.17670935077666988, 0.03, 0.0};
};

// The clock's label in the graphic views, leading blank included.
const char* ClockLabel(SimulationMode mode);

}  // namespace norvane
