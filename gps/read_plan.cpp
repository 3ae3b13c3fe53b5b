#include "gps/read_plan.h"

#include "gps/nmea_fields.h"

namespace norvane {

std::optional<NmeaWanted> GpsReadPlan(int view, int phase) {
  //                             RMC    VTG    GGA    GSA    GSV    GLL
  constexpr NmeaWanted kMotion = {false, true, true, false, false, false};
  constexpr NmeaWanted kStatus = {true, false, false, true, true, false};
  constexpr NmeaWanted kSatellites = {false, false, false, true, true, false};
  constexpr NmeaWanted kNone = {false, false, false, false, false, false};
  constexpr NmeaWanted kPage = {true, true, true, true, true, false};
  switch (view) {
    case kGpsViewInfo:
      return phase == 3 ? kStatus : kMotion;
    case kGpsViewMap:
      return kNone;
    case kGpsViewSky:
      if (phase == 1) return kMotion;
      if (phase == 2) return kSatellites;
      return std::nullopt;
    case kGpsViewGpsPage:
      return kPage;
    default:
      return std::nullopt;
  }
}

GpsObserverUpdate GpsPositionUpdate(const GpsData& gps) {
  GpsObserverUpdate update;
  if (gps.latitude == 0.0 || gps.longitude == 0.0) return update;
  update.position = true;
  update.latitude = gps.latitude * nmea::kDegreesToRadians;
  update.longitude = gps.longitude * nmea::kDegreesToRadians;
  if (gps.altitude != 0.0) {
    update.altitude = true;
    update.altitudeKm = gps.altitude / 1000.0;
  }
  return update;
}

}  // namespace norvane
