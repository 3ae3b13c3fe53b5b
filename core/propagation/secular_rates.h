#pragma once

#include "core/propagation/mean_motion_recovery.h"

namespace norvane {

// Secular rates of SGP4 and SDP4 from the recovered epoch orbit (rad/min).
struct SecularRates {
  double xmdot = 0;   // mean anomaly
  double omgdot = 0;  // argument of perigee
  double xnodot = 0;  // right ascension of the node
  double xhdot1 = 0;  // first-order part of the node rate
};

SecularRates secularRates(const RecoveredOrbit& o);

}  // namespace norvane
