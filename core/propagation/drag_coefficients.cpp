#include "core/propagation/drag_coefficients.h"

#include <cmath>

#include "core/propagation/model_constants.h"

namespace norvane {

using namespace model;

DragCoefficients dragCoefficients(const RecoveredOrbit& o, const WorkingSet& w,
                                  const DensityParameters& density) {
  DragCoefficients d;
  d.tsi = 1.0 / (o.aodp - density.s4);
  d.eta = o.aodp * w.eo * d.tsi;
  d.etasq = d.eta * d.eta;
  d.eeta = w.eo * d.eta;
  d.psisq = std::fabs(1.0 - d.etasq);
  const double tsi2 = d.tsi * d.tsi;
  d.coef = density.qoms24 * tsi2 * tsi2;
  d.coef1 = d.coef / std::pow(d.psisq, 3.5);
  const double c2 = d.coef1 * o.xnodp *
                    (o.aodp * (1.0 + 1.5 * d.etasq + d.eeta * (4.0 + d.etasq)) +
                     kCk2x0p75 * d.tsi / d.psisq * o.x3thm1 * (8.0 + 3.0 * d.etasq * (8.0 + d.etasq)));
  d.c1 = w.bstar * c2;
  const double x1mth2 = 1.0 - o.theta2;
  d.c4 = 2.0 * o.xnodp * d.coef1 * o.aodp * o.betao2 *
         (d.eta * (2.0 + 0.5 * d.etasq) + w.eo * (0.5 + 2.0 * d.etasq) -
          kCk2x2 * d.tsi / (o.aodp * d.psisq) *
              (-3.0 * o.x3thm1 * (1.0 - 2.0 * d.eeta + d.etasq * (1.5 - 0.5 * d.eeta)) +
               0.75 * x1mth2 * (2.0 * d.etasq - d.eeta * (1.0 + d.etasq)) * std::cos(2.0 * w.omegao)));
  return d;
}

}  // namespace norvane
