#pragma once
#include <cstdint>

#include "core/elements/satellite.h"

namespace norvane {

// The propagation's working copy of one catalogue entry. After initialisation
// the angles are in radians, the mean motion in radians per minute, its
// derivatives in radians per minute^2 and ^3, and B* in 1/earth radii.
struct WorkingSet : Satellite {
  double period = 0;             // min, anomalistic period
  std::int32_t isDeepSpace = 0;  // 1 when period >= 225 min
};

}  // namespace norvane
