#pragma once

#include "core/propagation/mean_motion_recovery.h"
#include "core/propagation/sgp8_output.h"
#include "core/propagation/working_set.h"

namespace norvane {

// Secular rates and the linear drag law shared by SGP8 and SDP8.
struct Sgp8Rates {
  double xnodp = 0;                           // rad/min
  double xlldot = 0, omgdt = 0, xnodot = 0;   // rad/min, secular rates
  double xmdt1 = 0, xgdt1 = 0, xhdt1 = 0;     // their first-order J2 parts
  double xndt = 0;                            // rad/min^2, drag rate of the mean motion
  double edot = 0;                            // 1/min, drag rate of the eccentricity
  model::Sgp8ShortPeriod shortPeriod;
};

// The epoch quantities of the SGP8 family's initialisation up to the drag
// rate of the mean motion: what SDP8 needs, and what SGP8's full drag law
// builds on.
struct Sgp8EpochTerms {
  RecoveredOrbit orbit;
  Sgp8Rates rates;
  double sing = 0, cosg = 0;
  double tsi = 0, eta = 0, eta2 = 0, psim2 = 0, alpha2 = 0, eeta = 0, cos2g = 0;
  double d1 = 0, d2 = 0, d3 = 0, d4 = 0, d5 = 0;
  double b1 = 0, b2 = 0, b3 = 0;
  double c0 = 0, c1 = 0, c4 = 0, c5 = 0;
  double xndtn = 0;  // xndt / xnodp
};

Sgp8EpochTerms sgp8EpochTerms(const WorkingSet& work);

}  // namespace norvane
