#pragma once
#include "core/astro/geodetic.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// Direction and distance of a body seen by the observer.
struct LookAngles {
  double azimuth = 0;    // rad from north through east, [0, 2pi)
  double elevation = 0;  // rad
  double range = 0;      // km
  double rangeRate = 0;  // km/s, positive when the distance grows
};

// State kept between LookAnglesOf calls. The trigonometry of the observer is
// refreshed only when the time changes, so a new observer at the same time
// keeps the old values; every caller that shares the observer shares one cache.
struct LookAngleCache {
  double time = 0;  // jd of the last refresh
  double sinLat = 0;
  double cosLat = 0;
  double sinTheta = 0;
  double cosTheta = 0;
  StateVector observerPos;  // km, of the last call
  StateVector observerVel;  // km/s, of the last call
};

// Look angles of an inertial position (km) and velocity (km/s) at jd (UTC
// days). Returns 0 when the body is below the horizon and keepBelowHorizon is
// off (azimuth and range rate then 0), else 1. Refraction is added after the
// horizon test. Writes observer.theta.
int LookAnglesOf(double jd, const StateVector& pos, const StateVector& vel, Geodetic& observer,
                 LookAngleCache& cache, LookAngles& out, bool keepBelowHorizon, bool applyRefraction);

// The refraction term added to an elevation (both rad). The formula's degree
// constants are given in radians and every angle inside it is in radians, so
// the term is small and changes sign; this is the tracker's behaviour.
double RefractionCorrection(double elevation);

}  // namespace norvane
