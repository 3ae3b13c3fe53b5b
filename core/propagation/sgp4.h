#pragma once
#include <cstdint>

#include "core/propagation/lyddane_output.h"
#include "core/propagation/model_flags.h"
#include "core/propagation/state_vector.h"
#include "core/propagation/working_set.h"

namespace norvane {

// What SGP4's initialisation computes for the last initialised element set.
struct Sgp4Constants {
  double aodp = 0, xnodp = 0;                        // er, rad/min
  double c1 = 0, c4 = 0, c5 = 0;                     // drag coefficients
  double d2 = 0, d3 = 0, d4 = 0;                     // higher-order drag
  double t2cof = 0, t3cof = 0, t4cof = 0, t5cof = 0; // mean longitude drag terms
  double xmdot = 0, omgdot = 0, xnodot = 0;          // rad/min, secular rates
  double omgcof = 0, xmcof = 0, xnodcf = 0;
  double eta = 0, delmo = 0, sinmo = 0;
  model::ShortPeriodCoefficients shortPeriod;
};

// Perigee-dependent density parameters of SGP4 and SDP4: s in earth radii and
// (q0 - s)^4 in earth radii^4.
struct DensityParameters {
  double s4 = 0;
  double qoms24 = 0;
};
DensityParameters densityParameters(double aodp, double eo);

// SGP4, the near-Earth model: position in earth radii and velocity in earth
// radii per minute at tsince minutes from epoch. initialised == 0 runs the
// initialisation for work first.
void sgp4(Sgp4Constants& constants, ModelFlags& flags, double tsince, const WorkingSet& work,
          StateVector& position, StateVector& velocity, std::uint8_t initialised);

}  // namespace norvane
