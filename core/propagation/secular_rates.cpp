#include "core/propagation/secular_rates.h"

#include "core/propagation/model_constants.h"

namespace norvane {

using namespace model;

SecularRates secularRates(const RecoveredOrbit& o) {
  const double pinvsq = 1.0 / (o.aodp * o.aodp * o.betao2 * o.betao2);
  const double theta4 = o.theta2 * o.theta2;
  const double pardt1 = kCk2x3 * pinvsq * o.xnodp;
  const double pardt2 = pardt1 * kCk2 * pinvsq;
  const double pardt4 = kCk4x1p25 * pinvsq * pinvsq * o.xnodp;
  SecularRates r;
  r.xmdot = o.xnodp + 0.5 * pardt1 * o.betao * o.x3thm1 +
            0.0625 * pardt2 * o.betao * (13.0 - 78.0 * o.theta2 + 137.0 * theta4);
  const double x1m5th = 1.0 - 5.0 * o.theta2;
  r.omgdot = -0.5 * pardt1 * x1m5th + 0.0625 * pardt2 * (7.0 - 114.0 * o.theta2 + 395.0 * theta4) +
             pardt4 * (3.0 - 36.0 * o.theta2 + 49.0 * theta4);
  r.xhdot1 = -pardt1 * o.cosio;
  r.xnodot = r.xhdot1 +
             (0.5 * pardt2 * (4.0 - 19.0 * o.theta2) + 2.0 * pardt4 * (3.0 - 7.0 * o.theta2)) * o.cosio;
  return r;
}

}  // namespace norvane
