#include "core/propagation/deep_space.h"

#include <cmath>
#include <limits>

#include "core/astro/julian_date.h"
#include "core/astro/numeric.h"

namespace norvane {
namespace {

// Sun and Moon.
constexpr double kZns = kSunMeanMotion;
constexpr double kC1ss = 2.9864797e-6;
constexpr double kZes = kSunEccentricity;
constexpr double kZnl = kMoonMeanMotion;
constexpr double kC1l = 4.7968065e-7;
constexpr double kZel = kMoonEccentricity;
constexpr double kZcosis = 0.91744867;    // obliquity
constexpr double kZsinis = 0.39785416;
constexpr double kZsings = -0.98088458;   // Sun's argument of perigee
constexpr double kZcosgs = 0.1945905;
// Resonance.
constexpr double kQ22 = 1.7891679e-6, kQ31 = 2.1460748e-6, kQ33 = 2.2123015e-7;
constexpr double kRoot22 = 1.7891679e-6, kRoot32 = 3.7393792e-7, kRoot44 = 7.3636953e-9;
constexpr double kRoot52 = 1.1428639e-7, kRoot54 = 2.1765803e-9;
using namespace resonance;
constexpr double kLowInclination = 5.2359877e-2;  // rad, 3 degrees

// Orientation of one perturbing body's orbit relative to the satellite's.
struct BodyGeometry {
  double zcosg, zsing, zcosi, zsini, zcosh, zsinh, cc, zn, ze;
};

// Secular rates of one body.
struct BodySecular {
  double se, si, sl, sgh, sh;
};

BodySecular bodyTerms(const BodyGeometry& g, const DeepExchange& x, double eq, double xnoi,
                      double xqncl, BodyPeriodics& p) {
  const double eqsq = x.eosq;
  const double a1 = g.zcosg * g.zcosh + g.zsing * g.zcosi * g.zsinh;
  const double a3 = -g.zsing * g.zcosh + g.zcosg * g.zcosi * g.zsinh;
  const double a7 = -g.zcosg * g.zsinh + g.zsing * g.zcosi * g.zcosh;
  const double a8 = g.zsing * g.zsini;
  const double a9 = g.zsing * g.zsinh + g.zcosg * g.zcosi * g.zcosh;
  const double a10 = g.zcosg * g.zsini;
  const double a2 = x.cosiq * a7 + x.siniq * a8;
  const double a4 = x.cosiq * a9 + x.siniq * a10;
  const double a5 = -x.siniq * a7 + x.cosiq * a8;
  const double a6 = -x.siniq * a9 + x.cosiq * a10;
  const double x1 = a1 * x.cosomo + a2 * x.sinomo;
  const double x2 = a3 * x.cosomo + a4 * x.sinomo;
  const double x3 = -a1 * x.sinomo + a2 * x.cosomo;
  const double x4 = -a3 * x.sinomo + a4 * x.cosomo;
  const double x5 = a5 * x.sinomo;
  const double x6 = a6 * x.sinomo;
  const double x7 = a5 * x.cosomo;
  const double x8 = a6 * x.cosomo;
  const double z31 = 12.0 * x1 * x1 - 3.0 * x3 * x3;
  const double z32 = 24.0 * x1 * x2 - 6.0 * x3 * x4;
  const double z33 = 12.0 * x2 * x2 - 3.0 * x4 * x4;
  double z1 = 3.0 * (a1 * a1 + a2 * a2) + z31 * eqsq;
  double z2 = 6.0 * (a1 * a3 + a2 * a4) + z32 * eqsq;
  double z3 = 3.0 * (a3 * a3 + a4 * a4) + z33 * eqsq;
  const double z11 = -6.0 * a1 * a5 + eqsq * (-24.0 * x1 * x7 - 6.0 * x3 * x5);
  const double z12 = -6.0 * (a1 * a6 + a3 * a5) +
                     eqsq * (-24.0 * (x2 * x7 + x1 * x8) - 6.0 * (x3 * x6 + x4 * x5));
  const double z13 = -6.0 * a3 * a6 + eqsq * (-24.0 * x2 * x8 - 6.0 * x4 * x6);
  const double z21 = 6.0 * a2 * a5 + eqsq * (24.0 * x1 * x5 - 6.0 * x3 * x7);
  const double z22 = 6.0 * (a4 * a5 + a2 * a6) +
                     eqsq * (24.0 * (x2 * x5 + x1 * x6) - 6.0 * (x4 * x7 + x3 * x8));
  const double z23 = 6.0 * a4 * a6 + eqsq * (24.0 * x2 * x6 - 6.0 * x4 * x8);
  z1 = 2.0 * z1 + x.bsq * z31;
  z2 = 2.0 * z2 + x.bsq * z32;
  z3 = 2.0 * z3 + x.bsq * z33;
  const double s3 = g.cc * xnoi;
  const double s2 = -0.5 * s3 / x.rteosq;
  const double s4 = s3 * x.rteosq;
  const double s1 = -15.0 * eq * s4;
  const double s5 = x1 * x3 + x2 * x4;
  const double s6 = x2 * x3 + x1 * x4;
  const double s7 = x2 * x4 - x1 * x3;

  BodySecular rates;
  rates.se = s1 * g.zn * s5;
  rates.si = s2 * g.zn * (z11 + z13);
  rates.sl = -g.zn * s3 * (z1 + z3 - 14.0 - 6.0 * eqsq);
  rates.sgh = s4 * g.zn * (z31 + z33 - 6.0);
  rates.sh = -g.zn * s2 * (z21 + z23);
  // Below 3 degrees the secular node terms are dropped.
  if (xqncl < kLowInclination) rates.sh = 0.0;

  p.e2 = 2.0 * s1 * s6;
  p.e3 = 2.0 * s1 * s7;
  p.i2 = 2.0 * s2 * z12;
  p.i3 = 2.0 * s2 * (z13 - z11);
  p.l2 = -2.0 * s3 * z2;
  p.l3 = -2.0 * s3 * (z3 - z1);
  p.l4 = -2.0 * s3 * (-21.0 - 9.0 * eqsq) * g.ze;
  p.gh2 = 2.0 * s4 * z32;
  p.gh3 = 2.0 * s4 * (z33 - z31);
  p.gh4 = -18.0 * s4 * g.ze;
  p.h2 = -2.0 * s2 * z22;
  p.h3 = -2.0 * s2 * (z23 - z21);
  return rates;
}

// Lunar and solar coefficients and the secular rates they add up to.
void initialiseLunarSolar(DeepSpaceState& s, const WorkingSet& w, double ds50) {
  const DeepExchange& x = s.exchange;
  const double sinq = std::sin(w.xnodeo);
  const double cosq = std::cos(w.xnodeo);

  // Moon's node, orbit orientation and mean anomaly; Sun's mean anomaly.
  const double day = ds50 + 18261.5;  // days from 1900 January 0.5
  const double xnodce = 4.5236020 - 9.2422029e-4 * day;
  const double stem = std::sin(xnodce);
  const double ctem = std::cos(xnodce);
  const double zcosil = 0.91375164 - 0.03568096 * ctem;
  const double zsinil = std::sqrt(1.0 - zcosil * zcosil);
  const double zsinhl = 0.089683511 * stem / zsinil;
  const double zcoshl = std::sqrt(1.0 - zsinhl * zsinhl);
  const double c = 4.7199672 + 0.22997150 * day;
  const double gam = 5.8351514 + 0.0019443680 * day;
  s.zmol = FMod2p(c - gam);
  double zx = 0.39785416 * stem / zsinil;
  const double zy = zcoshl * ctem + 0.91744867 * zsinhl * stem;
  zx = AcTan(zx, zy);
  zx = gam + zx - xnodce;
  const double zcosgl = std::cos(zx);
  const double zsingl = std::sin(zx);
  s.zmos = FMod2p(6.2565837 + 0.017201977 * day);
  s.savtsn = 1.0e20;
  const double xnoi = 1.0 / s.xnq;

  const BodyGeometry sun{kZcosgs, kZsings, kZcosis, kZsinis, cosq, sinq, kC1ss, kZns, kZes};
  const BodySecular solar = bodyTerms(sun, x, w.eo, xnoi, s.xqncl, s.solar);
  s.sse = solar.se;
  s.ssi = solar.si;
  s.ssl = solar.sl;
  s.ssh = solar.sh / x.siniq;
  s.ssg = solar.sgh - x.cosiq * s.ssh;

  const BodyGeometry moon{zcosgl, zsingl, zcosil, zsinil, zcoshl * cosq + zsinhl * sinq,
                          sinq * zcoshl - cosq * zsinhl, kC1l, kZnl, kZel};
  const BodySecular lunar = bodyTerms(moon, x, w.eo, xnoi, s.xqncl, s.lunar);
  s.sse += lunar.se;
  s.ssi += lunar.si;
  s.ssl += lunar.sl;
  s.ssg += lunar.sgh - x.cosiq / x.siniq * lunar.sh;
  s.ssh += lunar.sh / x.siniq;
}

// Eccentricity polynomials of the 12-hour resonance.
struct HalfDayPolynomials {
  double g201, g211, g310, g322, g410, g422, g520, g521, g532, g533;
};

HalfDayPolynomials halfDayPolynomials(double eq, double eqsq) {
  const double eoc = eq * eqsq;
  HalfDayPolynomials g{};
  g.g201 = -0.306 - (eq - 0.64) * 0.440;
  if (eq <= 0.65) {
    g.g211 = 3.616 - 13.247 * eq + 16.290 * eqsq;
    g.g310 = -19.302 + 117.390 * eq - 228.419 * eqsq + 156.591 * eoc;
    g.g322 = -18.9068 + 109.7927 * eq - 214.6334 * eqsq + 146.5816 * eoc;
    g.g410 = -41.122 + 242.694 * eq - 471.094 * eqsq + 313.953 * eoc;
    g.g422 = -146.407 + 841.880 * eq - 1629.014 * eqsq + 1083.435 * eoc;
    g.g520 = -532.114 + 3017.977 * eq - 5740.0 * eqsq + 3708.276 * eoc;
  } else {
    g.g211 = -72.099 + 331.819 * eq - 508.738 * eqsq + 266.724 * eoc;
    g.g310 = -346.844 + 1582.851 * eq - 2415.925 * eqsq + 1246.113 * eoc;
    g.g322 = -342.585 + 1554.908 * eq - 2366.899 * eqsq + 1215.972 * eoc;
    g.g410 = -1052.797 + 4758.686 * eq - 7193.992 * eqsq + 3651.957 * eoc;
    g.g422 = -3581.69 + 16178.11 * eq - 24462.77 * eqsq + 12422.52 * eoc;
    if (eq <= 0.715) g.g520 = 1464.74 - 4664.75 * eq + 3763.64 * eqsq;
    else g.g520 = -5149.66 + 29936.92 * eq - 54087.36 * eqsq + 31324.56 * eoc;
  }
  if (eq < 0.7) {
    g.g533 = -919.2277 + 4988.61 * eq - 9064.77 * eqsq + 5542.21 * eoc;
    g.g521 = -822.71072 + 4568.6173 * eq - 8491.4146 * eqsq + 5337.524 * eoc;
    g.g532 = -853.666 + 4690.25 * eq - 8624.77 * eqsq + 5341.4 * eoc;
  } else {
    g.g533 = -37995.78 + 161616.52 * eq - 229838.2 * eqsq + 109377.94 * eoc;
    g.g521 = -51752.104 + 218913.95 * eq - 309468.16 * eqsq + 146349.42 * eoc;
    g.g532 = -40023.88 + 170470.89 * eq - 242699.48 * eqsq + 115605.82 * eoc;
  }
  return g;
}

void initialiseHalfDayResonance(DeepSpaceState& s, const WorkingSet& w) {
  const DeepExchange& x = s.exchange;
  const HalfDayPolynomials g = halfDayPolynomials(w.eo, x.eosq);
  const double cosiq = x.cosiq;
  const double siniq = x.siniq;
  const double cosq2 = x.cosq2;
  const double sini2 = siniq * siniq;
  const double f220 = 0.75 * (1.0 + 2.0 * cosiq + cosq2);
  const double f221 = 1.5 * sini2;
  const double f321 = 1.875 * siniq * (1.0 - 2.0 * cosiq - 3.0 * cosq2);
  const double f322 = -1.875 * siniq * (1.0 + 2.0 * cosiq - 3.0 * cosq2);
  const double f441 = 35.0 * sini2 * f220;
  const double f442 = 39.3750 * sini2 * sini2;
  const double f522 = 9.84375 * siniq *
                      (sini2 * (1.0 - 2.0 * cosiq - 5.0 * cosq2) + 0.33333333 * (-2.0 + 4.0 * cosiq + 6.0 * cosq2));
  const double f523 = siniq * (4.92187512 * sini2 * (-2.0 - 4.0 * cosiq + 10.0 * cosq2) +
                               6.56250012 * (1.0 + 2.0 * cosiq - 3.0 * cosq2));
  const double f542 = 29.53125 * siniq * (2.0 - 8.0 * cosiq + cosq2 * (-12.0 + 8.0 * cosiq + 10.0 * cosq2));
  const double f543 = 29.53125 * siniq * (-2.0 - 8.0 * cosiq + cosq2 * (12.0 + 8.0 * cosiq - 10.0 * cosq2));

  const double aqnv = 1.0 / x.ao;
  const double rf2 = 3.0 * s.xnq * s.xnq * aqnv * aqnv;
  s.d2201 = rf2 * kRoot22 * f220 * g.g201;
  s.d2211 = rf2 * kRoot22 * f221 * g.g211;
  const double rf3 = rf2 * aqnv;
  s.d3210 = rf3 * kRoot32 * f321 * g.g310;
  s.d3222 = rf3 * kRoot32 * f322 * g.g322;
  const double rf4 = rf3 * aqnv;
  s.d4410 = 2.0 * rf4 * kRoot44 * f441 * g.g410;
  s.d4422 = 2.0 * rf4 * kRoot44 * f442 * g.g422;
  const double rf5 = rf4 * aqnv;
  s.d5220 = rf5 * kRoot52 * f522 * g.g520;
  s.d5232 = rf5 * kRoot52 * f523 * g.g532;
  s.d5421 = 2.0 * rf5 * kRoot54 * f542 * g.g521;
  s.d5433 = 2.0 * rf5 * kRoot54 * f543 * g.g533;
  s.xlamo = w.xmo + w.xnodeo + w.xnodeo - s.thgr - s.thgr;
  const double bfact = x.xlldot + x.xnodot + x.xnodot - kThdt - kThdt;
  s.xfact = bfact + s.ssl + s.ssh + s.ssh - s.xnq;
}

void initialiseSynchronousResonance(DeepSpaceState& s, const WorkingSet& w) {
  const DeepExchange& x = s.exchange;
  const double eqsq = x.eosq;
  const double cosiq = x.cosiq;
  const double g200 = 1.0 + eqsq * (-2.5 + 0.8125 * eqsq);
  const double g310 = 1.0 + 2.0 * eqsq;
  const double g300 = 1.0 + eqsq * (-6.0 + 6.60937 * eqsq);
  const double f220 = 0.75 * (1.0 + cosiq) * (1.0 + cosiq);
  const double f311 = 0.9375 * x.siniq * x.siniq * (1.0 + 3.0 * cosiq) - 0.75 * (1.0 + cosiq);
  const double f330 = 1.875 * (1.0 + cosiq) * (1.0 + cosiq) * (1.0 + cosiq);
  const double aqnv = 1.0 / x.ao;
  const double del = 3.0 * s.xnq * s.xnq * aqnv * aqnv;
  s.del2 = 2.0 * del * f220 * g200 * kQ22;
  s.del3 = 3.0 * del * f330 * g300 * kQ33 * aqnv;
  s.del1 = del * f311 * g310 * kQ31 * aqnv;
  s.xlamo = w.xmo + w.xnodeo + w.omegao - s.thgr;
  const double bfact = x.xlldot + (x.omgdt + x.xnodot) - kThdt;
  s.xfact = bfact + s.ssl + s.ssg + s.ssh - s.xnq;
}

// Rates of the resonance angle (xldot), of the mean motion (xndot) and the
// mean motion's second derivative (xnddt) at the integrator's current point.
struct ResonanceRates {
  double xldot, xndot, xnddt;
};

ResonanceRates resonanceRates(const DeepSpaceState& s, const ModelFlags& flags) {
  ResonanceRates r{};
  const double xli = s.xli;
  if (flags.synchronous != 0) {
    r.xndot = s.del1 * std::sin(xli - kFasx2) + s.del2 * std::sin(2.0 * (xli - kFasx4)) +
              s.del3 * std::sin(3.0 * (xli - kFasx6));
    r.xnddt = s.del1 * std::cos(xli - kFasx2) + 2.0 * s.del2 * std::cos(2.0 * (xli - kFasx4)) +
              3.0 * s.del3 * std::cos(3.0 * (xli - kFasx6));
  } else {
    const double xomi = s.omegaq + s.omgdt * s.atime;
    const double x2omi = xomi + xomi;
    const double x2li = xli + xli;
    r.xndot = s.d2201 * std::sin(x2omi + xli - kG22) + s.d2211 * std::sin(xli - kG22) +
              s.d3210 * std::sin(xomi + xli - kG32) + s.d3222 * std::sin(-xomi + xli - kG32) +
              s.d4410 * std::sin(x2omi + x2li - kG44) + s.d4422 * std::sin(x2li - kG44) +
              s.d5220 * std::sin(xomi + xli - kG52) + s.d5232 * std::sin(-xomi + xli - kG52) +
              s.d5421 * std::sin(xomi + x2li - kG54) + s.d5433 * std::sin(-xomi + x2li - kG54);
    r.xnddt = s.d2201 * std::cos(x2omi + xli - kG22) + s.d2211 * std::cos(xli - kG22) +
              s.d3210 * std::cos(xomi + xli - kG32) + s.d3222 * std::cos(-xomi + xli - kG32) +
              s.d5220 * std::cos(xomi + xli - kG52) + s.d5232 * std::cos(-xomi + xli - kG52) +
              2.0 * (s.d4410 * std::cos(x2omi + x2li - kG44) + s.d4422 * std::cos(x2li - kG44) +
                     s.d5421 * std::cos(xomi + x2li - kG54) + s.d5433 * std::cos(-xomi + x2li - kG54));
  }
  r.xldot = s.xni + s.xfact;
  r.xnddt *= r.xldot;
  return r;
}

void integratorStep(DeepSpaceState& s, const ModelFlags& flags, double delt) {
  const ResonanceRates r = resonanceRates(s, flags);
  s.xli = s.xli + r.xldot * delt + r.xndot * kStep2;
  s.xni = s.xni + r.xndot * delt + r.xnddt * kStep2;
  s.atime += delt;
}

void restartIntegrator(DeepSpaceState& s) {
  s.atime = 0.0;
  s.xni = s.xnq;
  s.xli = s.xlamo;
}

// Integrates the resonance terms to time t (whole steps of 720 minutes from
// the last point reached, or from epoch) and recovers the mean motion and
// mean anomaly from the resonance angle.
void integrateResonance(DeepSpaceState& s, const ModelFlags& flags) {
  DeepExchange& x = s.exchange;
  const double t = x.t;
  if (!(std::fabs(t) < kMaxIntegrationSpan)) {
    x.xn = std::numeric_limits<double>::quiet_NaN();
    x.xll = std::numeric_limits<double>::quiet_NaN();
    return;
  }
  double delt = 0.0;
  for (;;) {
    if (s.atime == 0.0 || (t >= 0.0 && s.atime < 0.0) || (t < 0.0 && s.atime >= 0.0)) {
      restartIntegrator(s);
      delt = t >= 0.0 ? kStep : -kStep;
      break;
    }
    if (std::fabs(t) < std::fabs(s.atime)) {
      // Back one step towards the epoch, then decide again.
      integratorStep(s, flags, t >= 0.0 ? -kStep : kStep);
      continue;
    }
    delt = t > 0.0 ? kStep : -kStep;
    break;
  }
  while (std::fabs(t - s.atime) >= kStep) integratorStep(s, flags, delt);

  const ResonanceRates r = resonanceRates(s, flags);
  const double ft = t - s.atime;
  x.xn = s.xni + r.xndot * ft + r.xnddt * ft * ft * 0.5;
  const double xl = s.xli + r.xldot * ft + r.xndot * ft * ft * 0.5;
  const double thgrt = -x.xnodes + s.thgr + t * kThdt;
  x.xll = flags.synchronous != 0 ? xl - x.omgasm + thgrt : xl + thgrt + thgrt;
}

void secular(DeepSpaceState& s, const ModelFlags& flags, const WorkingSet& w) {
  DeepExchange& x = s.exchange;
  x.xll += s.ssl * x.t;
  x.omgasm += s.ssg * x.t;
  x.xnodes += s.ssh * x.t;
  x.em = w.eo + s.sse * x.t;
  x.xinc = w.xincl + s.ssi * x.t;
  if (x.xinc < 0.0) {
    x.xinc = -x.xinc;
    x.xnodes += kPi;
    x.omgasm -= kPi;
  }
  if (flags.resonance != 0) integrateResonance(s, flags);
}

// Periodic terms of one body at mean anomaly zm.
struct BodyPeriodicTerms {
  double pe, pinc, pl, pgh, ph;
};

BodyPeriodicTerms bodyPeriodicTerms(const BodyPeriodics& c, double zm, double twiceEccentricity) {
  const double zf = zm + twiceEccentricity * std::sin(zm);
  const double sinzf = std::sin(zf);
  const double f2 = 0.5 * sinzf * sinzf - 0.25;
  const double f3 = -0.5 * sinzf * std::cos(zf);
  return {c.e2 * f2 + c.e3 * f3, c.i2 * f2 + c.i3 * f3, c.l2 * f2 + c.l3 * f3 + c.l4 * sinzf,
          c.gh2 * f2 + c.gh3 * f3 + c.gh4 * sinzf, c.h2 * f2 + c.h3 * f3};
}

void periodics(DeepSpaceState& s) {
  DeepExchange& x = s.exchange;
  const double sinis = std::sin(x.xinc);
  const double cosis = std::cos(x.xinc);
  // The lunar-solar terms are recomputed only after the time has moved 30 minutes.
  if (std::fabs(s.savtsn - x.t) >= 30.0) {
    s.savtsn = x.t;
    const BodyPeriodicTerms sun = bodyPeriodicTerms(s.solar, s.zmos + kZns * x.t, 2.0 * kZes);
    const BodyPeriodicTerms moon = bodyPeriodicTerms(s.lunar, s.zmol + kZnl * x.t, 2.0 * kZel);
    s.sghs = sun.pgh;
    s.shs = sun.ph;
    s.sghl = moon.pgh;
    s.shl = moon.ph;
    s.pe = sun.pe + moon.pe;
    s.pinc = sun.pinc + moon.pinc;
    s.pl = sun.pl + moon.pl;
  }
  double pgh = s.sghs + s.sghl;
  double ph = s.shs + s.shl;
  x.xinc += s.pinc;
  x.em += s.pe;

  if (s.xqncl >= 0.2) {
    ph /= s.siniq;
    pgh -= s.cosiq * ph;
    x.omgasm += pgh;
    x.xnodes += ph;
    x.xll += s.pl;
    return;
  }
  // Near zero inclination: apply the periodics to sin(i) sin(node),
  // sin(i) cos(node) and the longitude, with the node kept continuous.
  x.xnodes = FMod2p(x.xnodes);
  const double xnoh = x.xnodes;
  const double sinok = std::sin(x.xnodes);
  const double cosok = std::cos(x.xnodes);
  const double alfdp = sinis * sinok + (ph * cosok + s.pinc * cosis * sinok);
  const double betdp = sinis * cosok + (-ph * sinok + s.pinc * cosis * cosok);
  const double dls = s.pl + pgh - s.pinc * x.xnodes * sinis;
  const double xls = x.xll + x.omgasm + cosis * x.xnodes + dls;
  x.xnodes = AcTan(alfdp, betdp);
  if (std::fabs(xnoh - x.xnodes) > kPi) x.xnodes += x.xnodes < xnoh ? kTwoPi : -kTwoPi;
  x.xll += s.pl;
  x.omgasm = xls - x.xll - std::cos(x.xinc) * x.xnodes;
}

}  // namespace

double deepSpaceEpochDays(double epoch) {
  const double yearAndDay = epoch * 0.001;
  const double yy = Int(yearAndDay);
  const double day = (yearAndDay - yy) * 1000.0;
  return JulianDateOfYear(2000.0 + yy) + day - 2433281.5;
}

void deepInitialise(DeepSpaceState& s, ModelFlags& flags, const WorkingSet& w, double ds50) {
  const DeepExchange& x = s.exchange;
  s.thgr = FMod2p(1.72944494 + 6.3003880987 * ds50);
  s.xnq = x.xnodp;
  s.xqncl = w.xincl;
  s.omegaq = w.omegao;
  s.siniq = x.siniq;
  s.cosiq = x.cosiq;
  s.omgdt = x.omgdt;
  initialiseLunarSolar(s, w, ds50);

  flags.resonance = 0;
  flags.synchronous = 0;
  if (s.xnq > 0.0034906585 && s.xnq < 0.0052359877) {
    flags.resonance = 1;
    flags.synchronous = 1;
    initialiseSynchronousResonance(s, w);
  } else if (s.xnq < 8.26e-3 || s.xnq > 9.24e-3 || w.eo < 0.5) {
    return;
  } else {
    flags.resonance = 1;
    initialiseHalfDayResonance(s, w);
  }
  restartIntegrator(s);
}

void deep(DeepSpaceState& state, ModelFlags& flags, int entry, const WorkingSet& work) {
  switch (entry) {
    case 1: deepInitialise(state, flags, work, deepSpaceEpochDays(work.epoch)); break;
    case 2: secular(state, flags, work); break;
    case 3: periodics(state); break;
    default: break;
  }
}

}  // namespace norvane
