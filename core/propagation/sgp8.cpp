#include "core/propagation/sgp8.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/sgp8_output.h"

namespace norvane {

using namespace model;

namespace {

// Relative change of the mean motion per day below which the drag equations
// are truncated to a linear mean motion.
constexpr double kLowDragBound = 2.16e-3;

// Time derivatives of the drag quantities that the full drag law is fitted to.
struct DragDerivatives {
  double edot, eddot;    // eccentricity: first and second derivative
  double xnddt, xntrdt;  // mean motion: second and third derivative
};

DragDerivatives dragDerivatives(const Sgp8EpochTerms& e, const WorkingSet& w) {
  const RecoveredOrbit& o = e.orbit;
  const Sgp8Rates& r = e.rates;
  const double eo = w.eo;
  const double eta = e.eta, eta2 = e.eta2, eeta = e.eeta, psim2 = e.psim2, alpha2 = e.alpha2;
  DragDerivatives dd{};

  // Eccentricity rate and the time derivatives of the drag coefficients.
  const double d6 = eta * (30.0 + 22.5 * eta2);
  const double d7 = eta * (5.0 + 12.5 * eta2);
  const double d8 = 1.0 + eta2 * (6.75 + eta2);
  const double c8 = e.d1 * d7 * e.b2;
  const double c9 = e.d5 * d8 * e.b3;
  const double edot = -e.c0 * (eta * (4.0 + eta2 + o.eosq * (15.5 + 7.0 * eta2)) + eo * (5.0 + 15.0 * eta2) +
                               e.d1 * d6 * e.b1 + c8 * e.cos2g + c9 * e.sing);
  const double d20 = 0.5 * kTwoThirds * e.xndtn;
  const double aldtal = eo * edot / alpha2;
  const double tsdtts = 2.0 * o.aodp * e.tsi * (d20 * o.betao2 + eo * edot);
  const double etdt = (edot + eo * tsdtts) * e.tsi * kS;
  const double psdtps = -eta * etdt * psim2;
  const double sin2g = 2.0 * e.sing * e.cosg;
  const double c0dtc0 = d20 + 4.0 * tsdtts - aldtal - 7.0 * psdtps;
  const double c1dtc1 = e.xndtn + 4.0 * aldtal + c0dtc0;
  const double d9 = eta * (6.0 + 68.0 * o.eosq) + eo * (20.0 + 15.0 * eta2);
  const double d10 = 5.0 * eta * (4.0 + eta2) + eo * (17.0 + 68.0 * eta2);
  const double d11 = eta * (72.0 + 18.0 * eta2);
  const double d12 = eta * (30.0 + 10.0 * eta2);
  const double d13 = 5.0 + 11.25 * eta2;
  const double d14 = tsdtts - 2.0 * psdtps;
  const double d15 = 2.0 * (d20 + eo * edot / o.betao2);
  const double d1dt = e.d1 * (d14 + d15);
  const double d2dt = etdt * d11;
  const double d3dt = etdt * d12;
  const double d4dt = etdt * d13;
  const double d5dt = e.d5 * d14;
  const double c4dt = e.b2 * (d1dt * e.d3 + e.d1 * d3dt);
  const double c5dt = e.b3 * (d5dt * e.d4 + e.d5 * d4dt);

  // Second derivatives of mean motion and eccentricity.
  const double d16 = d9 * etdt + d10 * edot + e.b1 * (d1dt * e.d2 + e.d1 * d2dt) + c4dt * e.cos2g +
                     c5dt * e.sing + r.xgdt1 * (e.c5 * e.cosg - 2.0 * e.c4 * sin2g);
  const double xnddt = c1dtc1 * r.xndt + e.c1 * d16;
  const double edd1 = (4.0 + 3.0 * eta2 + 30.0 * eeta + o.eosq * (15.5 + 21.0 * eta2)) * etdt +
                      (5.0 + 15.0 * eta2 + eeta * (31.0 + 14.0 * eta2)) * edot;
  const double edd2 = e.b1 * (d1dt * d6 + e.d1 * etdt * (30.0 + 67.5 * eta2)) +
                      e.b2 * (d1dt * d7 + e.d1 * etdt * (5.0 + 37.5 * eta2)) * e.cos2g;
  const double edd3 = e.b3 * (d5dt * d8 + e.d5 * etdt * eta * (13.5 + 4.0 * eta2)) * e.sing +
                      r.xgdt1 * (c9 * e.cosg - 2.0 * c8 * sin2g);
  const double eddot = c0dtc0 * edot - e.c0 * (edd1 + edd2 + edd3);

  // Third derivative of the mean motion.
  const double d25 = edot * edot;
  const double d17 = xnddt / o.xnodp - e.xndtn * e.xndtn;
  const double tsddts = 2.0 * tsdtts * (tsdtts - d20) +
                        o.aodp * e.tsi * (kTwoThirds * o.betao2 * d17 - 4.0 * d20 * eo * edot + 2.0 * (d25 + eo * eddot));
  const double etddt = (eddot + 2.0 * edot * tsdtts) * e.tsi * kS + tsddts * eta;
  const double d18 = tsddts - tsdtts * tsdtts;
  const double d19 = -psdtps * psdtps / eta2 - eta * etddt * psim2 - psdtps * psdtps;
  const double d23 = etdt * etdt;
  const double d1ddt = d1dt * (d14 + d15) +
                       e.d1 * (d18 - 2.0 * d19 + kTwoThirds * d17 + 2.0 * (alpha2 * d25 / o.betao2 + eo * eddot) / o.betao2);
  const double xnt1 = 2.0 * kTwoThirds * d17 + 3.0 * (d25 + eo * eddot) / alpha2 - 6.0 * aldtal * aldtal +
                      4.0 * d18 - 7.0 * d19;
  const double xnt2 = d9 * etddt + d10 * eddot + d23 * (6.0 + 30.0 * eeta + 68.0 * o.eosq) +
                      etdt * edot * (40.0 + 30.0 * eta2 + 272.0 * eeta) + d25 * (17.0 + 68.0 * eta2);
  const double xnt3 = e.b1 * (d1ddt * e.d2 + 2.0 * d1dt * d2dt + e.d1 * (etddt * d11 + d23 * (72.0 + 54.0 * eta2)));
  const double xnt4 =
      e.b2 * (d1ddt * e.d3 + 2.0 * d1dt * d3dt + e.d1 * (etddt * d12 + d23 * (30.0 + 30.0 * eta2))) * e.cos2g;
  const double xnt5 = e.b3 *
                      ((d5dt * d14 + e.d5 * (d18 - 2.0 * d19)) * e.d4 + 2.0 * d4dt * d5dt +
                       e.d5 * (etddt * d13 + 22.5 * eta * d23)) *
                      e.sing;
  const double xnt6 = r.xgdt1 * ((7.0 * d20 + 4.0 * eo * edot / o.betao2) * (e.c5 * e.cosg - 2.0 * e.c4 * sin2g) +
                                 2.0 * c5dt * e.cosg - 4.0 * c4dt * sin2g -
                                 r.xgdt1 * (e.c5 * e.sing + 4.0 * e.c4 * e.cos2g));
  dd.xntrdt = r.xndt * xnt1 + c1dtc1 * xnddt + e.c1 * (c1dtc1 * d16 + xnt2 + xnt3 + xnt4 + xnt5 + xnt6);
  dd.edot = edot;
  dd.eddot = eddot;
  dd.xnddt = xnddt;
  return dd;
}

void initialise(Sgp8Constants& k, ModelFlags& flags, const WorkingSet& w) {
  const Sgp8EpochTerms e = sgp8EpochTerms(w);
  k.rates = e.rates;
  flags.simpleDrag = 0;
  if (std::fabs(e.xndtn * 1440.0) < kLowDragBound) {
    flags.simpleDrag = 1;
    return;  // linear mean motion; edot is the linear law's
  }
  const DragDerivatives dd = dragDerivatives(e, w);
  k.rates.edot = dd.edot;
  // The drag law's constants; the 1e9 and 1e18 scalings are the report's.
  const double tmnddt = dd.xnddt * 1.0e9;
  const double tpp = tmnddt * tmnddt - k.rates.xndt * 1.0e18 * dd.xntrdt;
  k.pp = (tpp + tmnddt * tmnddt) / tpp;
  k.gamma = -dd.xntrdt / (dd.xnddt * (k.pp - 2.0));
  k.xnd = k.rates.xndt / (k.pp * k.gamma);
  k.qq = 1.0 - dd.eddot / (dd.edot * k.gamma);
  k.ed = dd.edot / (k.qq * k.gamma);
  k.ovgpp = 1.0 / (k.gamma * (k.pp + 1.0));
}

}  // namespace

void sgp8(Sgp8Constants& k, ModelFlags& flags, double t, const WorkingSet& w, StateVector& position,
          StateVector& velocity, std::uint8_t initialised) {
  if (initialised == 0) initialise(k, flags, w);
  const Sgp8Rates& r = k.rates;

  Sgp8MeanElements m;
  double xmam = FMod2p(w.xmo + r.xlldot * t);
  m.omgasm = w.omegao + r.omgdt * t;
  m.xnodes = w.xnodeo + r.xnodot * t;

  // Drag: mean motion, eccentricity and the integral z1 of the mean motion's change.
  double z1 = 0;
  if (flags.simpleDrag == 0) {
    const double tgt = 1.0 - k.gamma * t;
    const double tgtpp = std::pow(tgt, k.pp);
    m.xn = r.xnodp + k.xnd * (1.0 - tgtpp);
    m.em = w.eo + k.ed * (1.0 - std::pow(tgt, k.qq));
    z1 = k.xnd * (t + k.ovgpp * (tgt * tgtpp - 1.0));
  } else {
    m.xn = r.xnodp + r.xndt * t;
    m.em = w.eo + r.edot * t;
    z1 = 0.5 * r.xndt * t * t;
  }
  const double z7 = 3.5 * kTwoThirds * z1 / r.xnodp;
  m.xmam = FMod2p(xmam + z1 + z7 * r.xmdt1);
  m.omgasm += z7 * r.xgdt1;
  m.xnodes += z7 * r.xhdt1;
  m.sini2 = r.shortPeriod.sinio2;
  sgp8Output(m, r.shortPeriod, position, velocity);
}

}  // namespace norvane
