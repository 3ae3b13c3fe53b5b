#pragma once
#include <cstdint>

#include "core/propagation/deep_space.h"
#include "core/propagation/model_flags.h"
#include "core/propagation/sgp8_epoch.h"
#include "core/propagation/state_vector.h"
#include "core/propagation/working_set.h"

namespace norvane {

// What SDP8's initialisation computes for the last initialised element set.
struct Sdp8Constants {
  Sgp8Rates rates;
};

// SDP8's initialisation with the deep-space epoch given as days since 1950
// January 0.0 (sdp8 itself passes deepSpaceEpochDays(work.epoch)).
void sdp8Initialise(Sdp8Constants& constants, DeepSpaceState& deep, ModelFlags& flags,
                    const WorkingSet& work, double ds50);

// SDP8, the deep-space model of the alternative family: position in earth
// radii and velocity in earth radii per minute at tsince minutes from epoch.
void sdp8(Sdp8Constants& constants, DeepSpaceState& deep, ModelFlags& flags, double tsince,
          const WorkingSet& work, StateVector& position, StateVector& velocity, std::uint8_t initialised);

}  // namespace norvane
