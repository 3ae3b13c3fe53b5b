// The batch SDP4, compiled once per SIMD target by Highway's foreach_target;
// the best target the processor supports is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "core/propagation/batch_sdp4.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <vector>

#include "core/propagation/batch_lyddane-inl.h"
#include "core/propagation/batch_sdp4.h"
#include "core/propagation/deep_space.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE {

using namespace batch;

namespace {

// The deep-space elements after the secular step.
struct DeepLanes {
  Vd xll, omgasm, xnodes, em, xinc, xn;
};

// The resonance integrator's point: angle, mean motion and time (min).
struct IntegratorLanes {
  Vd xli, xni, atime;
};

// Rates of the resonance angle, of the mean motion and the mean motion's
// second derivative at the integrator's point (deep_space.cpp's
// resonanceRates), for the lanes of each kind of resonance.
template <class Source>
HWY_INLINE void ResonanceRateLanes(Tag d, const Source& source, const IntegratorLanes& p, Md synchronous,
                                   Md halfDay, Vd& xldot, Vd& xndot, Vd& xnddt) {
  using enum Sdp4Field;
  using namespace resonance;
  const auto k = [&](Sdp4Field f) { return source(d, f); };
  const auto c = [&](double value) { return hn::Set(d, value); };
  xndot = hn::Zero(d);
  xnddt = hn::Zero(d);
  if (!hn::AllFalse(d, synchronous)) {
    const SinCosLanes a1 = SinCos(d, p.xli - c(kFasx2));
    const SinCosLanes a2 = SinCos(d, c(2.0) * (p.xli - c(kFasx4)));
    const SinCosLanes a3 = SinCos(d, c(3.0) * (p.xli - c(kFasx6)));
    xndot = hn::IfThenElse(synchronous, k(Del1) * a1.sin + k(Del2) * a2.sin + k(Del3) * a3.sin, xndot);
    xnddt = hn::IfThenElse(synchronous,
                           k(Del1) * a1.cos + c(2.0) * k(Del2) * a2.cos + c(3.0) * k(Del3) * a3.cos, xnddt);
  }
  if (!hn::AllFalse(d, halfDay)) {
    const Vd xomi = k(Omegao) + k(Omgdot) * p.atime;
    const Vd x2omi = xomi + xomi;
    const Vd x2li = p.xli + p.xli;
    const SinCosLanes t2201 = SinCos(d, x2omi + p.xli - c(kG22));
    const SinCosLanes t2211 = SinCos(d, p.xli - c(kG22));
    const SinCosLanes t3210 = SinCos(d, xomi + p.xli - c(kG32));
    const SinCosLanes t3222 = SinCos(d, hn::Neg(xomi) + p.xli - c(kG32));
    const SinCosLanes t4410 = SinCos(d, x2omi + x2li - c(kG44));
    const SinCosLanes t4422 = SinCos(d, x2li - c(kG44));
    const SinCosLanes t5220 = SinCos(d, xomi + p.xli - c(kG52));
    const SinCosLanes t5232 = SinCos(d, hn::Neg(xomi) + p.xli - c(kG52));
    const SinCosLanes t5421 = SinCos(d, xomi + x2li - c(kG54));
    const SinCosLanes t5433 = SinCos(d, hn::Neg(xomi) + x2li - c(kG54));
    const Vd sum = k(D2201) * t2201.sin + k(D2211) * t2211.sin + k(D3210) * t3210.sin + k(D3222) * t3222.sin +
                   k(D4410) * t4410.sin + k(D4422) * t4422.sin + k(D5220) * t5220.sin + k(D5232) * t5232.sin +
                   k(D5421) * t5421.sin + k(D5433) * t5433.sin;
    const Vd second = k(D2201) * t2201.cos + k(D2211) * t2211.cos + k(D3210) * t3210.cos + k(D3222) * t3222.cos +
                      k(D5220) * t5220.cos + k(D5232) * t5232.cos +
                      c(2.0) * (k(D4410) * t4410.cos + k(D4422) * t4422.cos + k(D5421) * t5421.cos +
                                k(D5433) * t5433.cos);
    xndot = hn::IfThenElse(halfDay, sum, xndot);
    xnddt = hn::IfThenElse(halfDay, second, xnddt);
  }
  xldot = p.xni + k(Xfact);
  xnddt = xnddt * xldot;
}


// The resonance integration from epoch to t in steps of 720 minutes, then the
// second-order step to t (deep_space.cpp's integrateResonance after a fresh
// initialisation), in the resonant lanes; each lane stops at its own time.
template <class Source>
HWY_INLINE void ResonanceLanes(Tag d, const Source& source, Vd t, Md resonant, DeepLanes& x) {
  using enum Sdp4Field;
  using namespace resonance;
  const auto k = [&](Sdp4Field f) { return source(d, f); };
  const auto c = [&](double value) { return hn::Set(d, value); };
  const Md synchronous = hn::And(resonant, k(Resonance) == c(2.0));
  const Md halfDay = hn::And(resonant, k(Resonance) == c(1.0));
  const Md reachable = hn::Abs(t) < c(kMaxIntegrationSpan);
  const Vd delt = hn::IfThenElse(t >= hn::Zero(d), c(kStep), c(-kStep));
  IntegratorLanes p{k(Xlamo), k(Xnodp), hn::Zero(d)};
  Vd xldot, xndot, xnddt;
  for (;;) {
    const Md stepping = hn::And(hn::And(resonant, reachable), hn::Abs(t - p.atime) >= c(kStep));
    if (hn::AllFalse(d, stepping)) break;
    ResonanceRateLanes(d, source, p, synchronous, halfDay, xldot, xndot, xnddt);
    p.xli = hn::IfThenElse(stepping, p.xli + xldot * delt + xndot * c(kStep2), p.xli);
    p.xni = hn::IfThenElse(stepping, p.xni + xndot * delt + xnddt * c(kStep2), p.xni);
    p.atime = hn::IfThenElse(stepping, p.atime + delt, p.atime);
  }
  ResonanceRateLanes(d, source, p, synchronous, halfDay, xldot, xndot, xnddt);
  const Vd ft = t - p.atime;
  const Vd half = c(0.5);
  const Vd xn = p.xni + xndot * ft + xnddt * ft * ft * half;
  const Vd xl = p.xli + xldot * ft + xndot * ft * ft * half;
  const Vd thgrt = hn::Neg(x.xnodes) + k(Thgr) + t * c(kThdt);
  const Vd xll = hn::IfThenElse(synchronous, xl - x.omgasm + thgrt, xl + thgrt + thgrt);
  const Vd nan = c(std::numeric_limits<double>::quiet_NaN());
  x.xn = hn::IfThenElse(resonant, hn::IfThenElse(reachable, xn, nan), x.xn);
  x.xll = hn::IfThenElse(resonant, hn::IfThenElse(reachable, xll, nan), x.xll);
}

// One body's periodic terms at mean anomaly zm (deep_space.cpp's bodyPeriodicTerms).
struct BodyLanes {
  Vd pe, pinc, pl, pgh, ph;
};

template <class Source>
HWY_INLINE BodyLanes BodyPeriodicLanes(Tag d, const Source& source, Sdp4Field first, Vd zm,
                                       double twiceEccentricity) {
  const auto c = [&](int offset) {
    return source(d, static_cast<Sdp4Field>(static_cast<int>(first) + offset));
  };
  const Vd zf = zm + hn::Set(d, twiceEccentricity) * SinOf(d, zm);
  const SinCosLanes zfTrig = SinCos(d, zf);
  const Vd sinzf = zfTrig.sin;
  const Vd half = hn::Set(d, 0.5);
  const Vd f2 = half * sinzf * sinzf - hn::Set(d, 0.25);
  const Vd f3 = hn::Neg(half) * sinzf * zfTrig.cos;
  // Coefficients in the order e2 e3 i2 i3 l2 l3 l4 gh2 gh3 gh4 h2 h3.
  return {c(0) * f2 + c(1) * f3, c(2) * f2 + c(3) * f3, c(4) * f2 + c(5) * f3 + c(6) * sinzf,
          c(7) * f2 + c(8) * f3 + c(9) * sinzf, c(10) * f2 + c(11) * f3};
}

// The update of sdp4.cpp with the deep-space secular step and freshly
// computed lunar-solar periodics, per lane at t minutes from each epoch.
template <class Source>
HWY_INLINE StateLanes Sdp4Lanes(Tag d, const Source& source, Vd t) {
  using enum Sdp4Field;
  const auto k = [&](Sdp4Field f) { return source(d, f); };
  const Vd one = hn::Set(d, 1.0);
  const Vd zero = hn::Zero(d);
  const Vd pi = hn::Set(d, kPi);
  const Vd twoPi = hn::Set(d, kTwoPi);

  // Secular gravity and drag, then the lunar-solar secular rates.
  const Vd tsq = t * t;
  DeepLanes x;
  x.xll = k(Xmo) + k(Xmdot) * t;
  x.omgasm = k(Omegao) + k(Omgdot) * t;
  x.xnodes = k(Xnodeo) + k(Xnodot) * t + k(Xnodcf) * tsq;
  x.xn = k(Xnodp);
  x.xll = x.xll + k(Ssl) * t;
  x.omgasm = x.omgasm + k(Ssg) * t;
  x.xnodes = x.xnodes + k(Ssh) * t;
  x.em = k(Eo) + k(Sse) * t;
  x.xinc = k(Xincl) + k(Ssi) * t;
  const Md negative = x.xinc < zero;
  x.xinc = hn::IfThenElse(negative, hn::Neg(x.xinc), x.xinc);
  x.xnodes = hn::IfThenElse(negative, x.xnodes + pi, x.xnodes);
  x.omgasm = hn::IfThenElse(negative, x.omgasm - pi, x.omgasm);
  const Md resonant = k(Resonance) != zero;
  if (!hn::AllFalse(d, resonant)) ResonanceLanes(d, source, t, resonant, x);

  const Vd tempa = one - k(C1) * t;
  const Vd tempe = k(Bstar) * k(C4) * t;
  const Vd templ = k(T2cof) * tsq;
  const Vd a = hn::Exp(d, hn::Set(d, model::kTwoThirds) * hn::Log(d, hn::Set(d, model::kXke) / x.xn)) * tempa *
               tempa;
  x.em = x.em - tempe;
  x.xll = x.xll + k(Xnodp) * templ;

  // Lunar-solar periodics.
  const SinCosLanes inclination = SinCos(d, x.xinc);
  const Vd sinis = inclination.sin;
  const Vd cosis = inclination.cos;
  const BodyLanes sun =
      BodyPeriodicLanes(d, source, SunE2, k(Zmos) + hn::Set(d, kSunMeanMotion) * t, 2.0 * kSunEccentricity);
  const BodyLanes moon =
      BodyPeriodicLanes(d, source, MoonE2, k(Zmol) + hn::Set(d, kMoonMeanMotion) * t, 2.0 * kMoonEccentricity);
  const Vd pe = sun.pe + moon.pe;
  const Vd pinc = sun.pinc + moon.pinc;
  const Vd pl = sun.pl + moon.pl;
  const Vd pgh = sun.pgh + moon.pgh;
  const Vd ph = sun.ph + moon.ph;
  x.xinc = x.xinc + pinc;
  x.em = x.em + pe;

  // Inclined orbits: the periodics added to the node, perigee and anomaly.
  const Md inclined = k(Xincl) >= hn::Set(d, 0.2);
  const Vd phInclined = ph / k(Sinio);
  Vd omgasm = x.omgasm + (pgh - k(Cosio) * phInclined);
  Vd xnodes = x.xnodes + phInclined;
  const Vd xll = x.xll + pl;
  // Near zero inclination: applied to sin(i) sin(node), sin(i) cos(node) and
  // the longitude, with the node kept continuous.
  if (!hn::AllTrue(d, inclined)) {
    const Vd xnoh = FMod2pLanes(d, x.xnodes);
    const SinCosLanes node = SinCos(d, xnoh);
    const Vd sinok = node.sin;
    const Vd cosok = node.cos;
    const Vd alfdp = sinis * sinok + (ph * cosok + pinc * cosis * sinok);
    const Vd betdp = sinis * cosok + (hn::Neg(ph) * sinok + pinc * cosis * cosok);
    const Vd dls = pl + pgh - pinc * xnoh * sinis;
    const Vd xls = x.xll + x.omgasm + cosis * xnoh + dls;
    Vd newNode = AcTanLanes(d, alfdp, betdp);
    const Vd turn = hn::IfThenElse(newNode < xnoh, twoPi, hn::Neg(twoPi));
    newNode = hn::IfThenElse(hn::Abs(xnoh - newNode) > pi, newNode + turn, newNode);
    xnodes = hn::IfThenElse(inclined, xnodes, newNode);
    omgasm = hn::IfThenElse(inclined, omgasm, xls - xll - CosOf(d, x.xinc) * newNode);
  }

  MeanLanes m;
  m.a = a;
  m.e = x.em;
  m.omega = omgasm;
  m.xnode = xnodes;
  m.xl = xll + omgasm + xnodes;
  m.xinc = x.xinc;
  const ShortPeriodLanes sp{k(Cosio), k(Sinio), k(X3thm1), k(X1mth2), k(X7thm1), k(Xlcof), k(Aycof)};
  return LyddaneLanes(d, m, sp);
}

}  // namespace

void Sdp4Gathered(const double* rowMajor, const std::uint32_t* rows, const double* jds,
                  const std::uint32_t* targets, std::size_t count, BatchStates& out) {
  PropagateGathered<Sdp4Field>(rowMajor, rows, jds, targets, count, out,
                    [](Tag d, const auto& source, Vd t) { return Sdp4Lanes(d, source, t); });
}

void Sdp4Rows(const SoaColumns<Sdp4Field>& c, double jd, std::size_t begin, std::size_t end, BatchStates& out) {
  PropagateRows(c, jd, begin, end, out, [](Tag d, const auto& source, Vd t) { return Sdp4Lanes(d, source, t); });
}

void Sdp4Times(const double* values, const double* tsince, std::size_t count, BatchStates& out) {
  PropagateTimes<Sdp4Field>(values, tsince, count, out,
                            [](Tag d, const auto& source, Vd t) { return Sdp4Lanes(d, source, t); });
}

}  // namespace norvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/propagation/propagate.h"
#include "core/propagation/sdp4.h"

namespace norvane {

HWY_EXPORT(Sdp4Rows);
HWY_EXPORT(Sdp4Times);
HWY_EXPORT(Sdp4Gathered);

BatchSdp4::BatchSdp4(std::span<const Satellite> satellites) {
  columns_.resize(satellites.size());
  for (std::size_t i = 0; i < satellites.size(); ++i) {
    WorkingSet w;
    initialiseWorkingSet(w, satellites[i]);
    Sdp4Constants k;
    ModelFlags flags;
    auto deepState = std::make_unique<DeepSpaceState>();
    sdp4Initialise(k, *deepState, flags, w, deepSpaceEpochDays(w.epoch));
    const DeepSpaceState& s = *deepState;
    const double resonance = flags.resonance == 0 ? 0.0 : flags.synchronous != 0 ? 2.0 : 1.0;
    resonant_ += flags.resonance != 0 ? 1 : 0;
    const model::ShortPeriodCoefficients& sp = k.shortPeriod;
    const BodyPeriodics& sun = s.solar;
    const BodyPeriodics& moon = s.lunar;
    const double values[] = {
        w.xmo, w.omegao, w.xnodeo, w.bstar, w.eo, w.xincl,
        k.xnodp, k.c1, k.c4, k.t2cof, k.xnodcf, k.xmdot, k.omgdot, k.xnodot,
        sp.cosio, sp.sinio, sp.x3thm1, sp.x1mth2, sp.x7thm1, sp.xlcof, sp.aycof,
        s.sse, s.ssi, s.ssl, s.ssg, s.ssh, s.zmos, s.zmol,
        sun.e2, sun.e3, sun.i2, sun.i3, sun.l2, sun.l3, sun.l4, sun.gh2, sun.gh3, sun.gh4, sun.h2, sun.h3,
        moon.e2, moon.e3, moon.i2, moon.i3, moon.l2, moon.l3, moon.l4, moon.gh2, moon.gh3, moon.gh4, moon.h2,
        moon.h3,
        resonance, s.xlamo, s.xfact, s.thgr, s.del1, s.del2, s.del3,
        s.d2201, s.d2211, s.d3210, s.d3222, s.d4410, s.d4422, s.d5220, s.d5232, s.d5421, s.d5433,
        epochToJulian(w.epoch)};
    static_assert(std::size(values) == SoaColumns<Sdp4Field>::kFields);
    for (std::size_t f = 0; f < std::size(values); ++f) columns_.at(static_cast<Sdp4Field>(f), i) = values[f];
  }
  columns_.fillPadding();
  rowMajor_ = rowMajorCopy(columns_);
}

void BatchSdp4::propagate(double jd, BatchStates& out) const {
  out.resize(size());
  propagateRows(jd, 0, size(), out);
}

void BatchSdp4::propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const {
  if (begin >= end) return;
  HWY_DYNAMIC_DISPATCH(Sdp4Rows)(columns_, jd, begin, end, out);
}

void BatchSdp4::propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const {
  out.resize(jds.size());
  if (jds.empty() || index >= size()) return;
  const auto values = columns_.row(index);
  const double epoch = values[static_cast<std::size_t>(Sdp4Field::EpochJd)];
  std::vector<double> tsince(out.padded());
  for (std::size_t i = 0; i < tsince.size(); ++i) tsince[i] = (jds[std::min(i, jds.size() - 1)] - epoch) * 1440.0;
  HWY_DYNAMIC_DISPATCH(Sdp4Times)(values.data(), tsince.data(), out.padded(), out);
}

void BatchSdp4::propagateGathered(std::span<const std::uint32_t> rows, std::span<const double> jds,
                                  std::span<const std::uint32_t> targets, BatchStates& out) const {
  if (rows.empty()) return;
  HWY_DYNAMIC_DISPATCH(Sdp4Gathered)(rowMajor_.data(), rows.data(), jds.data(), targets.data(), rows.size(), out);
}

}  // namespace norvane
#endif  // HWY_ONCE
