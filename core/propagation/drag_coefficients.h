#pragma once

#include "core/propagation/mean_motion_recovery.h"
#include "core/propagation/sgp4.h"
#include "core/propagation/working_set.h"

namespace norvane {

// The atmospheric drag terms that SGP4 and SDP4 compute alike at epoch.
struct DragCoefficients {
  double tsi = 0;    // 1 / (a - s)
  double eta = 0;
  double etasq = 0;
  double eeta = 0;   // e * eta
  double psisq = 0;  // |1 - eta^2|
  double coef = 0;   // (q0 - s)^4 * tsi^4
  double coef1 = 0;  // coef / psisq^3.5
  double c1 = 0;
  double c4 = 0;
};

DragCoefficients dragCoefficients(const RecoveredOrbit& o, const WorkingSet& w,
                                  const DensityParameters& density);

}  // namespace norvane
