#pragma once

namespace norvane {

// A place on or above the Earth: the observer, or the point below a satellite.
struct Geodetic {
  double lat = 0;    // rad, north positive
  double lon = 0;    // rad, east positive
  double alt = 0;    // km above the ellipsoid
  double theta = 0;  // rad, local sidereal angle, written by the computations
};

}  // namespace norvane
