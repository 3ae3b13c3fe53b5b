#pragma once
#include "core/propagation/state_vector.h"

namespace norvane {

// 1 when the satellite at satPos (km, geocentric) is in the Earth's umbra for
// the Sun at sun (km, geocentric), else 0; both vectors carry their lengths.
// depth (rad) = Earth's angular radius - Sun's - their separation, seen from
// the satellite; a partial shadow (depth < 0) counts as lit.
int SatEclipsed(const StateVector& satPos, const StateVector& sun, double& depth);

}  // namespace norvane
