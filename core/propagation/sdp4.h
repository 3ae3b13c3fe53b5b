#pragma once
#include <cstdint>

#include "core/propagation/deep_space.h"
#include "core/propagation/lyddane_output.h"
#include "core/propagation/model_flags.h"
#include "core/propagation/state_vector.h"
#include "core/propagation/working_set.h"

namespace norvane {

// What SDP4's initialisation computes for the last initialised element set.
struct Sdp4Constants {
  double xnodp = 0;                         // rad/min
  double c1 = 0, c4 = 0;                    // drag coefficients
  double t2cof = 0, xnodcf = 0;
  double xmdot = 0, omgdot = 0, xnodot = 0; // rad/min, secular rates
  model::ShortPeriodCoefficients shortPeriod;
};

// SDP4's initialisation with the deep-space epoch given as days since 1950
// January 0.0 (sdp4 itself passes deepSpaceEpochDays(work.epoch)).
void sdp4Initialise(Sdp4Constants& constants, DeepSpaceState& deep, ModelFlags& flags,
                    const WorkingSet& work, double ds50);

// SDP4, the deep-space model: position in earth radii and velocity in earth
// radii per minute at tsince minutes from epoch. initialised == 0 runs the
// initialisation (and the deep-space routine's) for work first.
void sdp4(Sdp4Constants& constants, DeepSpaceState& deep, ModelFlags& flags, double tsince,
          const WorkingSet& work, StateVector& position, StateVector& velocity, std::uint8_t initialised);

}  // namespace norvane
