#pragma once
#include "core/astro/geodetic.h"

namespace norvane {

// The Moon in the observer's sky.
struct MoonHorizontal {
  double azimuth = 0;   // rad from north through east, [0, 2pi)
  double altitude = 0;  // rad, corrected for parallax
  double distance = 0;  // in units of the mean distance
};

// The point below the Moon.
struct MoonSubPoint {
  double lat = 0;       // rad: the declination
  double lon = 0;       // rad east: right ascension minus Greenwich sidereal time, not reduced
  double distance = 0;  // always 384403.0 km
};

// Days since 1980 January 0.0 UTC, the day count MoonPosition takes.
inline constexpr double kMoonEpoch = 2444238.5;  // jd

// The Moon's direction for the observer (lat, lon) at d = jd - kMoonEpoch.
void MoonPosition(double d, const Geodetic& observer, MoonHorizontal& horizontal, MoonSubPoint& subPoint);

// Altitude (rad) reported for a geometric altitude h (rad) at distance r (mean distances).
double MoonParallaxAltitude(double h, double r);

}  // namespace norvane
