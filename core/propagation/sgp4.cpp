#include "core/propagation/sgp4.h"

#include <cmath>

#include "core/propagation/drag_coefficients.h"
#include "core/propagation/mean_motion_recovery.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/secular_rates.h"

namespace norvane {

using namespace model;

DensityParameters densityParameters(double aodp, double eo) {
  const double perigeeKm = (aodp * (1.0 - eo) - kAe) * kEarthRadiusKm;
  if (perigeeKm >= 156.0) return {kS, kQoms2t};
  const double s4Km = perigeeKm <= 98.0 ? 20.0 : perigeeKm - 78.0;
  const double q = (120.0 - s4Km) * kAe / kEarthRadiusKm;
  return {s4Km / kEarthRadiusKm + kAe, q * q * q * q};
}

namespace {

void initialise(Sgp4Constants& k, ModelFlags& flags, const WorkingSet& w) {
  const RecoveredOrbit o = recoverMeanMotion(w.xno, w.xincl, w.eo);
  k.aodp = o.aodp;
  k.xnodp = o.xnodp;
  flags.simpleDrag = o.aodp * (1.0 - w.eo) / kAe < kSimpleDragBound ? 1 : 0;
  const DensityParameters density = densityParameters(o.aodp, w.eo);

  // Drag coefficients.
  const DragCoefficients drag = dragCoefficients(o, w, density);
  const double tsi = drag.tsi;
  k.eta = drag.eta;
  const double etasq = drag.etasq;
  const double eeta = drag.eeta;
  const double coef = drag.coef;
  const double coef1 = drag.coef1;
  k.c1 = drag.c1;
  k.c4 = drag.c4;
  const double sinio = std::sin(w.xincl);
  const double c3 = coef * tsi * kA3ovk2 * o.xnodp * kAe * sinio / w.eo;
  const double x1mth2 = 1.0 - o.theta2;
  k.c5 = 2.0 * coef1 * o.aodp * o.betao2 * (1.0 + 2.75 * (etasq + eeta) + eeta * etasq);

  const SecularRates rates = secularRates(o);
  k.xmdot = rates.xmdot;
  k.omgdot = rates.omgdot;
  k.xnodot = rates.xnodot;
  const double xhdot1 = rates.xhdot1;

  // Remaining coefficients; C3 and XMCOF are unguarded against e = 0.
  k.omgcof = w.bstar * c3 * std::cos(w.omegao);
  k.xmcof = -kTwoThirds * coef * w.bstar * kAe / eeta;
  k.xnodcf = 3.5 * o.betao2 * xhdot1 * k.c1;
  k.t2cof = 1.5 * k.c1;
  const double delmoRoot = 1.0 + k.eta * std::cos(w.xmo);
  k.delmo = delmoRoot * delmoRoot * delmoRoot;
  k.sinmo = std::sin(w.xmo);
  k.shortPeriod = {o.cosio, sinio, o.x3thm1, x1mth2, 7.0 * o.theta2 - 1.0,
                   0.125 * kA3ovk2 * sinio * (3.0 + 5.0 * o.cosio) / (1.0 + o.cosio),
                   0.25 * kA3ovk2 * sinio};

  if (flags.simpleDrag != 0) return;
  // Higher-order drag terms for perigees of 220 km and more.
  const double c1sq = k.c1 * k.c1;
  k.d2 = 4.0 * o.aodp * tsi * c1sq;
  const double dt3 = k.d2 * tsi * k.c1 / 3.0;
  k.d3 = (17.0 * o.aodp + density.s4) * dt3;
  k.d4 = 0.5 * dt3 * o.aodp * tsi * (221.0 * o.aodp + 31.0 * density.s4) * k.c1;
  k.t3cof = k.d2 + 2.0 * c1sq;
  k.t4cof = 0.25 * (3.0 * k.d3 + k.c1 * (12.0 * k.d2 + 10.0 * c1sq));
  k.t5cof = 0.2 * (3.0 * k.d4 + 12.0 * k.c1 * k.d3 + 6.0 * k.d2 * k.d2 + 15.0 * c1sq * (2.0 * k.d2 + c1sq));
}

}  // namespace

void sgp4(Sgp4Constants& k, ModelFlags& flags, double t, const WorkingSet& w, StateVector& position,
          StateVector& velocity, std::uint8_t initialised) {
  if (initialised == 0) initialise(k, flags, w);

  // Secular gravity and linear drag.
  const double xmdf = w.xmo + k.xmdot * t;
  const double omgadf = w.omegao + k.omgdot * t;
  const double xnoddf = w.xnodeo + k.xnodot * t;
  double omega = omgadf;
  double xmp = xmdf;
  const double tsq = t * t;
  const double xnode = xnoddf + k.xnodcf * tsq;
  double tempa = 1.0 - k.c1 * t;
  double tempe = w.bstar * k.c4 * t;
  double templ = k.t2cof * tsq;

  if (flags.simpleDrag == 0) {
    const double delomg = k.omgcof * t;
    const double delmRoot = 1.0 + k.eta * std::cos(xmdf);
    const double delm = k.xmcof * (delmRoot * delmRoot * delmRoot - k.delmo);
    const double domdm = delomg + delm;
    xmp = xmdf + domdm;
    omega = omgadf - domdm;
    const double tcube = tsq * t;
    const double tfour = t * tcube;
    tempa = tempa - k.d2 * tsq - k.d3 * tcube - k.d4 * tfour;
    tempe = tempe + w.bstar * k.c5 * (std::sin(xmp) - k.sinmo);
    templ = templ + k.t3cof * tcube + tfour * (k.t4cof + t * k.t5cof);
  }

  model::MeanElements m;
  m.a = k.aodp * tempa * tempa;
  m.e = w.eo - tempe;
  m.omega = omega;
  m.xnode = xnode;
  m.xl = xmp + omega + xnode + k.xnodp * templ;
  m.xinc = w.xincl;
  model::lyddaneOutput(m, k.shortPeriod, position, velocity);
}

}  // namespace norvane
