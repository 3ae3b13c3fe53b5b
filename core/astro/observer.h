#pragma once
#include "core/astro/geodetic.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// Inertial position (km) and velocity (km/s) of a point on the rotating Earth
// at jd (UTC days), both with their lengths; writes observer.theta.
void ObserverPosVel(double jd, Geodetic& observer, StateVector& pos, StateVector& vel);

// Inertial position (km) by the geocentric-latitude construction of the orbit
// view; slightly different from ObserverPosVel. pos.w is left as it was.
void ObserverPosition(double jd, const Geodetic& observer, StateVector& pos);

}  // namespace norvane
