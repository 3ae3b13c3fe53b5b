#pragma once
#include <cstdint>

#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"
#include "core/propagation/state_vector.h"
#include "ui/views/view_world.h"

namespace norvane {

// The current satellite as the sky view's overlays describe it.
struct SatelliteReading {
  StateVector pos;       // km
  StateVector vel;       // km/s
  LookAngles look;       // kept below the horizon
  Geodetic subPoint;     // altitude in km
  int eclipsed = 0;
  double depth = 0.0;        // rad
  double magnitude = 100.0;  // 100: unknown
  double flareMagnitude = 100.0;  // 100: no flare
  double flareAngle = 100.0;      // rad
  int antenna = 0;                // 1 Front, 2 Left, 3 Right
};

// Propagates the current satellite to the world's time and fills the reading:
// look angles with the refraction setting, sunlight and magnitude, and with an
// Iridium file the flare figures. The sunlight figures in the caches are
// updated only while the satellite is lit.
void ReadCurrentSatellite(ViewWorld& world, SatelliteReading& reading);

}  // namespace norvane
