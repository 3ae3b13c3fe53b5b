#pragma once
#include "core/elements/satellite.h"

namespace norvane {

// A mean motion within 9e-5 rev/day of 1.0027: a geostationary satellite.
bool IsGeostationary(const Satellite& sat);

// Whether the orbit can bring the satellite above the horizon of an observer
// at this latitude (rad): the horizon angle seen from apogee plus the
// inclination (folded below 90 degrees) exceeds |latitude|. False for a mean
// motion of 0.
bool CanRise(const Satellite& sat, double latitude);

// The sixteen Iridium catalogue numbers that the flare search leaves out.
bool IsExcludedFromFlareSearch(int catnr);

}  // namespace norvane
