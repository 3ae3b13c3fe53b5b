#pragma once
#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// The obliquity used to turn ecliptic positions to the equator. Only a
// computation of the Earth sets it; every other body uses what it holds, so
// callers compute the Earth first.
struct PlanetCache {
  double cosEpsilon = 0;
  double sinEpsilon = 0;
};

inline constexpr int kEarthIndex = 0;

// Heliocentric equatorial position (km) of a body (0 Earth, 1 Mercury ...
// 8 Pluto) at jd (UTC days); vec.w is the distance from the Sun. Returns 1.
int PlanetPosition(double jd, int bodyIndex, StateVector& vec, PlanetCache& cache);

// Look angles of a body from the observer, as the views find them: the Earth,
// then the body, the difference passed to LookAnglesOf kept below the horizon.
void PlanetLookAngles(double jd, int bodyIndex, Geodetic& observer, PlanetCache& planetCache,
                      LookAngleCache& lookCache, bool applyRefraction, LookAngles& out);

}  // namespace norvane
