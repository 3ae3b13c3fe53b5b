#include "core/propagation/sdp4.h"

#include <cmath>

#include "core/propagation/drag_coefficients.h"
#include "core/propagation/mean_motion_recovery.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/secular_rates.h"
#include "core/propagation/sgp4.h"

namespace norvane {

using namespace model;

void sdp4Initialise(Sdp4Constants& k, DeepSpaceState& deepState, ModelFlags& flags, const WorkingSet& w,
                    double ds50) {
  const RecoveredOrbit o = recoverMeanMotion(w.xno, w.xincl, w.eo);
  k.xnodp = o.xnodp;
  const DensityParameters density = densityParameters(o.aodp, w.eo);

  // Drag coefficients.
  const double sing = std::sin(w.omegao);
  const double cosg = std::cos(w.omegao);
  const DragCoefficients drag = dragCoefficients(o, w, density);
  k.c1 = drag.c1;
  k.c4 = drag.c4;
  const double sinio = std::sin(w.xincl);
  const double x1mth2 = 1.0 - o.theta2;

  const SecularRates rates = secularRates(o);
  k.xmdot = rates.xmdot;
  k.omgdot = rates.omgdot;
  k.xnodot = rates.xnodot;
  const double xhdot1 = rates.xhdot1;

  k.xnodcf = 3.5 * o.betao2 * xhdot1 * k.c1;
  k.t2cof = 1.5 * k.c1;
  k.shortPeriod = {o.cosio, sinio, o.x3thm1, x1mth2, 7.0 * o.theta2 - 1.0,
                   0.125 * kA3ovk2 * sinio * (3.0 + 5.0 * o.cosio) / (1.0 + o.cosio),
                   0.25 * kA3ovk2 * sinio};

  DeepExchange& x = deepState.exchange;
  x.eosq = o.eosq;
  x.siniq = sinio;
  x.cosiq = o.cosio;
  x.rteosq = o.betao;
  x.ao = o.aodp;
  x.cosq2 = o.theta2;
  x.sinomo = sing;
  x.cosomo = cosg;
  x.bsq = o.betao2;
  x.xlldot = k.xmdot;
  x.omgdt = k.omgdot;
  x.xnodot = k.xnodot;
  x.xnodp = o.xnodp;
  deepInitialise(deepState, flags, w, ds50);
}

void sdp4(Sdp4Constants& k, DeepSpaceState& deepState, ModelFlags& flags, double t, const WorkingSet& w,
          StateVector& position, StateVector& velocity, std::uint8_t initialised) {
  if (initialised == 0) sdp4Initialise(k, deepState, flags, w, deepSpaceEpochDays(w.epoch));

  // Secular gravity and drag, then the deep-space secular and resonance effects.
  DeepExchange& x = deepState.exchange;
  const double tsq = t * t;
  x.xll = w.xmo + k.xmdot * t;
  x.omgasm = w.omegao + k.omgdot * t;
  x.xnodes = w.xnodeo + k.xnodot * t + k.xnodcf * tsq;
  x.xn = k.xnodp;
  x.t = t;
  deep(deepState, flags, 2, w);

  const double tempa = 1.0 - k.c1 * t;
  const double tempe = w.bstar * k.c4 * t;
  const double templ = k.t2cof * tsq;
  const double a = std::pow(kXke / x.xn, kTwoThirds) * tempa * tempa;
  x.em -= tempe;
  x.xll += k.xnodp * templ;
  deep(deepState, flags, 3, w);

  MeanElements m;
  m.a = a;
  m.e = x.em;
  m.omega = x.omgasm;
  m.xnode = x.xnodes;
  m.xl = x.xll + x.omgasm + x.xnodes;
  m.xinc = x.xinc;
  lyddaneOutput(m, k.shortPeriod, position, velocity);
}

}  // namespace norvane
