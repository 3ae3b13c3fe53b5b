#pragma once
#include "core/propagation/state_vector.h"

namespace norvane {

// Mean obliquity of the ecliptic at jd (UTC days); radians.
double Obliquity(double jd);

// Geocentric Sun vector (km) at jd (UTC days) in the inertial frame of the
// satellite states; sun.w is the Sun's distance.
void SunPosition(double jd, StateVector& sun);

}  // namespace norvane
