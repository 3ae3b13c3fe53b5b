#pragma once
#include <optional>

#include "gps/gps_data.h"
#include "gps/nmea_decoder.h"

namespace norvane {

// Views of the main window, as the reader thread tells them apart.
enum GpsView : int {
  kGpsViewInfo = 0,
  kGpsViewMap = 1,
  kGpsViewSky = 2,
  kGpsViewOrbit = 3,
  kGpsViewLeaveFullScreen = 4,
  kGpsViewGpsPage = 5,
};

// The sentence kinds one pass collects for the view shown and the timer
// phase (0..3), or nothing when no cycle is due. On the map a cycle with no
// wanted kind reads one sentence and drops it.
std::optional<NmeaWanted> GpsReadPlan(int view, int phase);

// What a fix changes in the observer.
struct GpsObserverUpdate {
  bool position = false;  // latitude and longitude both non-zero
  bool altitude = false;  // and the altitude too
  double latitude = 0.0;  // radians
  double longitude = 0.0;  // radians
  double altitudeKm = 0.0;  // km
};

// Position update after a pass: an exact zero latitude or longitude counts as
// unknown and changes nothing.
GpsObserverUpdate GpsPositionUpdate(const GpsData& gps);

}  // namespace norvane
