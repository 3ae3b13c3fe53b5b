#pragma once
#include "core/astro/geodetic.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// The point below an inertial position (km) at jd (UTC days): latitude
// (southern negative), longitude in [0, 2pi) east, altitude (km) and theta.
// Returns the number of latitude iterations made (at most 10).
int SubSatellitePoint(double jd, const StateVector& pos, Geodetic& point);

}  // namespace norvane
