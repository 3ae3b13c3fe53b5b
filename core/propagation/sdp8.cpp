#include "core/propagation/sdp8.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/sgp8_output.h"

namespace norvane {

using namespace model;

void sdp8Initialise(Sdp8Constants& k, DeepSpaceState& deepState, ModelFlags& flags, const WorkingSet& w,
                    double ds50) {
  const Sgp8EpochTerms e = sgp8EpochTerms(w);
  k.rates = e.rates;
  const RecoveredOrbit& o = e.orbit;
  DeepExchange& x = deepState.exchange;
  x.eosq = o.eosq;
  x.siniq = e.rates.shortPeriod.sini;
  x.cosiq = o.cosio;
  x.rteosq = o.betao;
  x.ao = o.aodp;
  x.cosq2 = o.theta2;
  x.sinomo = e.sing;
  x.cosomo = e.cosg;
  x.bsq = o.betao2;
  x.xlldot = e.rates.xlldot;
  x.omgdt = e.rates.omgdt;
  x.xnodot = e.rates.xnodot;
  x.xnodp = o.xnodp;
  deepInitialise(deepState, flags, w, ds50);
}

void sdp8(Sdp8Constants& k, DeepSpaceState& deepState, ModelFlags& flags, double t, const WorkingSet& w,
          StateVector& position, StateVector& velocity, std::uint8_t initialised) {
  if (initialised == 0) sdp8Initialise(k, deepState, flags, w, deepSpaceEpochDays(w.epoch));
  const Sgp8Rates& r = k.rates;

  // Secular gravity and linear drag, then the deep-space secular and resonance effects.
  const double z1 = 0.5 * r.xndt * t * t;
  const double z7 = 3.5 * kTwoThirds * z1 / r.xnodp;
  DeepExchange& x = deepState.exchange;
  x.xll = w.xmo + r.xlldot * t;
  x.omgasm = w.omegao + r.omgdt * t + z7 * r.xgdt1;
  x.xnodes = w.xnodeo + r.xnodot * t + z7 * r.xhdt1;
  x.xn = r.xnodp;
  x.t = t;
  deep(deepState, flags, 2, w);

  Sgp8MeanElements m;
  m.xn = x.xn + r.xndt * t;
  x.em += r.edot * t;
  x.xll = x.xll + z1 + z7 * r.xmdt1;
  deep(deepState, flags, 3, w);

  m.em = x.em;
  m.xmam = FMod2p(x.xll);
  m.omgasm = x.omgasm;
  m.xnodes = x.xnodes;
  m.sini2 = std::sin(0.5 * x.xinc);
  sgp8Output(m, r.shortPeriod, position, velocity);
}

}  // namespace norvane
