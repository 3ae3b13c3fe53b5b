#include "core/propagation/mean_motion_recovery.h"

#include <cmath>

#include "core/propagation/model_constants.h"

namespace norvane {

RecoveredOrbit recoverMeanMotion(double xno, double xincl, double eo) {
  using namespace model;
  RecoveredOrbit r;
  const double a1 = std::pow(kXke / xno, kTwoThirds);
  r.cosio = std::cos(xincl);
  r.theta2 = r.cosio * r.cosio;
  r.x3thm1 = 3.0 * r.theta2 - 1.0;
  r.eosq = eo * eo;
  r.betao2 = 1.0 - r.eosq;
  r.betao = std::sqrt(r.betao2);
  // 1.5 CK2 (3 cos^2 i - 1) / (1 - e^2)^1.5, divided by a^2 below.
  const double j2Term = kCk2x1p5 * r.x3thm1 / (r.betao * r.betao2);
  const double del1 = j2Term / (a1 * a1);
  const double ao = a1 * (1.0 - del1 * (0.5 * kTwoThirds + del1 * (1.0 + k134Over81 * del1)));
  const double delo = j2Term / (ao * ao);
  r.xnodp = xno / (1.0 + delo);
  r.aodp = ao / (1.0 - delo);
  return r;
}

}  // namespace norvane
