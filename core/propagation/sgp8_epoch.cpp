#include "core/propagation/sgp8_epoch.h"

#include <cmath>

#include "core/propagation/model_constants.h"

namespace norvane {

using namespace model;

Sgp8EpochTerms sgp8EpochTerms(const WorkingSet& w) {
  Sgp8EpochTerms e;
  const RecoveredOrbit& o = e.orbit = recoverMeanMotion(w.xno, w.xincl, w.eo);
  Sgp8Rates& r = e.rates;
  r.xnodp = o.xnodp;
  const double b = 2.0 * w.bstar / kRho;

  // Geometry and secular rates.
  const double po = o.aodp * o.betao2;
  const double pom2 = 1.0 / (po * po);
  const double sini = std::sin(w.xincl);
  e.sing = std::sin(w.omegao);
  e.cosg = std::cos(w.omegao);
  const double theta4 = o.theta2 * o.theta2;
  const double unm5th = 1.0 - 5.0 * o.theta2;
  const double unmth2 = 1.0 - o.theta2;
  const double pardt1 = kCk2x3 * pom2 * o.xnodp;
  const double pardt2 = pardt1 * kCk2 * pom2;
  const double pardt4 = kCk4x1p25 * pom2 * pom2 * o.xnodp;
  r.xmdt1 = 0.5 * pardt1 * o.betao * o.x3thm1;
  r.xgdt1 = -0.5 * pardt1 * unm5th;
  r.xhdt1 = -pardt1 * o.cosio;
  r.xlldot = o.xnodp + r.xmdt1 + 0.0625 * pardt2 * o.betao * (13.0 - 78.0 * o.theta2 + 137.0 * theta4);
  r.omgdt = r.xgdt1 + 0.0625 * pardt2 * (7.0 - 114.0 * o.theta2 + 395.0 * theta4) +
            pardt4 * (3.0 - 36.0 * o.theta2 + 49.0 * theta4);
  r.xnodot = r.xhdt1 + (0.5 * pardt2 * (4.0 - 19.0 * o.theta2) + 2.0 * pardt4 * (3.0 - 7.0 * o.theta2)) * o.cosio;
  r.shortPeriod = {o.cosio, sini, o.theta2, unm5th, unmth2, o.x3thm1,
                   std::sin(0.5 * w.xincl), std::cos(0.5 * w.xincl)};

  // Drag: first derivative of the mean motion.
  e.tsi = 1.0 / (po - kS);
  e.eta = w.eo * kS * e.tsi;
  e.eta2 = e.eta * e.eta;
  e.psim2 = std::fabs(1.0 / (1.0 - e.eta2));
  e.alpha2 = 1.0 + o.eosq;
  e.eeta = w.eo * e.eta;
  e.cos2g = 2.0 * e.cosg * e.cosg - 1.0;
  e.d5 = e.tsi * e.psim2;
  e.d1 = e.d5 / po;
  e.d2 = 12.0 + e.eta2 * (36.0 + 4.5 * e.eta2);
  e.d3 = e.eta2 * (15.0 + 2.5 * e.eta2);
  e.d4 = e.eta * (5.0 + 3.75 * e.eta2);
  e.b1 = kCk2 * o.x3thm1;
  e.b2 = -kCk2 * unmth2;
  e.b3 = kA3ovk2 * sini;
  const double tsi2 = e.tsi * e.tsi;
  e.c0 = 0.5 * b * kRho * kQoms2t * o.xnodp * o.aodp * tsi2 * tsi2 * std::pow(e.psim2, 3.5) /
         std::sqrt(e.alpha2);
  e.c1 = 1.5 * o.xnodp * e.alpha2 * e.alpha2 * e.c0;
  e.c4 = e.d1 * e.d3 * e.b2;
  e.c5 = e.d5 * e.d4 * e.b3;
  r.xndt = e.c1 * ((2.0 + e.eta2 * (3.0 + 34.0 * o.eosq) + 5.0 * e.eeta * (4.0 + e.eta2) + 8.5 * o.eosq) +
                   e.d1 * e.d2 * e.b1 + e.c4 * e.cos2g + e.c5 * e.sing);
  e.xndtn = r.xndt / o.xnodp;
  // The linear drag law's eccentricity rate (SGP8 replaces it when drag is high).
  r.edot = -kTwoThirds * e.xndtn * (1.0 - w.eo);
  return e;
}

}  // namespace norvane
