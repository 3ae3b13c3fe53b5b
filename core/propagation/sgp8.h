#pragma once
#include <cstdint>

#include "core/propagation/model_flags.h"
#include "core/propagation/sgp8_epoch.h"
#include "core/propagation/state_vector.h"
#include "core/propagation/working_set.h"

namespace norvane {

// What SGP8's initialisation computes for the last initialised element set.
struct Sgp8Constants {
  Sgp8Rates rates;
  // Drag law n(t) = xnodp + xnd (1 - (1 - gamma t)^pp), e(t) = eo + ed (1 - (1 - gamma t)^qq).
  double xnd = 0, gamma = 0, pp = 0, qq = 0, ed = 0, ovgpp = 0;
};

// SGP8, the near-Earth model of the alternative family: position in earth
// radii and velocity in earth radii per minute at tsince minutes from epoch.
// initialised == 0 runs the initialisation for work first.
void sgp8(Sgp8Constants& constants, ModelFlags& flags, double tsince, const WorkingSet& work,
          StateVector& position, StateVector& velocity, std::uint8_t initialised);

}  // namespace norvane
