// The batch SDP4, compiled once per SIMD target by Highway's foreach_target;
// the best target the processor supports is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "core/propagation/batch_sdp4.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "core/propagation/batch_lyddane-inl.h"
#include "core/propagation/batch_sdp4.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE {

using namespace batch;

namespace {

struct DeepLanes {
  Vd xll, omgasm, xnodes, em, xinc, xn;
};

// Runs the scalar resonance step in the lanes of resonant satellites and
// puts its results back into the vectors.
HWY_NOINLINE void ResonantLanes(Tag d, const ResonantSatellite* resonant, Vd index, Vd t, DeepLanes& x) {
  HWY_ALIGN double lanes[7][kBatchRowPadding];
  Vd* const vectors[6] = {&x.xll, &x.omgasm, &x.xnodes, &x.em, &x.xinc, &x.xn};
  for (std::size_t v = 0; v < 6; ++v) hn::Store(*vectors[v], d, lanes[v]);
  hn::Store(index, d, lanes[6]);
  HWY_ALIGN double times[kBatchRowPadding];
  hn::Store(t, d, times);
  for (std::size_t j = 0; j < hn::Lanes(d); ++j) {
    if (lanes[6][j] < 0.0) continue;
    const DeepSecularLane s = resonant[static_cast<std::size_t>(lanes[6][j])].secular(times[j]);
    const double values[6] = {s.xll, s.omgasm, s.xnodes, s.em, s.xinc, s.xn};
    for (std::size_t v = 0; v < 6; ++v) lanes[v][j] = values[v];
  }
  for (std::size_t v = 0; v < 6; ++v) *vectors[v] = hn::Load(d, lanes[v]);
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
  const Vd sinzf = SinOf(d, zf);
  const Vd half = hn::Set(d, 0.5);
  const Vd f2 = half * sinzf * sinzf - hn::Set(d, 0.25);
  const Vd f3 = hn::Neg(half) * sinzf * CosOf(d, zf);
  // Coefficients in the order e2 e3 i2 i3 l2 l3 l4 gh2 gh3 gh4 h2 h3.
  return {c(0) * f2 + c(1) * f3, c(2) * f2 + c(3) * f3, c(4) * f2 + c(5) * f3 + c(6) * sinzf,
          c(7) * f2 + c(8) * f3 + c(9) * sinzf, c(10) * f2 + c(11) * f3};
}

// The update of sdp4.cpp with the deep-space secular step and freshly
// computed lunar-solar periodics, per lane at t minutes from each epoch.
template <class Source>
HWY_INLINE StateLanes Sdp4Lanes(Tag d, const Source& source, const ResonantSatellite* resonant, Vd t) {
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
  const Vd index = k(Resonant);
  if (!hn::AllFalse(d, index >= zero)) ResonantLanes(d, resonant, index, t, x);

  const Vd tempa = one - k(C1) * t;
  const Vd tempe = k(Bstar) * k(C4) * t;
  const Vd templ = k(T2cof) * tsq;
  const Vd a = hn::Exp(d, hn::Set(d, model::kTwoThirds) * hn::Log(d, hn::Set(d, model::kXke) / x.xn)) * tempa *
               tempa;
  x.em = x.em - tempe;
  x.xll = x.xll + k(Xnodp) * templ;

  // Lunar-solar periodics.
  const Vd sinis = SinOf(d, x.xinc);
  const Vd cosis = CosOf(d, x.xinc);
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
    const Vd sinok = SinOf(d, xnoh);
    const Vd cosok = CosOf(d, xnoh);
    const Vd alfdp = sinis * sinok + (ph * cosok + pinc * cosis * sinok);
    const Vd betdp = sinis * cosok + (hn::Neg(ph) * sinok + pinc * cosis * cosok);
    const Vd dls = pl + pgh - pinc * xnoh * sinis;
    const Vd xls = x.xll + x.omgasm + cosis * xnoh + dls;
    Vd node = AcTanLanes(d, alfdp, betdp);
    const Vd turn = hn::IfThenElse(node < xnoh, twoPi, hn::Neg(twoPi));
    node = hn::IfThenElse(hn::Abs(xnoh - node) > pi, node + turn, node);
    xnodes = hn::IfThenElse(inclined, xnodes, node);
    omgasm = hn::IfThenElse(inclined, omgasm, xls - xll - CosOf(d, x.xinc) * node);
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

void outputColumns(BatchStates& out, double* columns[6]) {
  for (std::size_t i = 0; i < 6; ++i) columns[i] = out.column(static_cast<StateField>(i));
}

}  // namespace

void Sdp4Rows(const SoaColumns<Sdp4Field>& c, const ResonantSatellite* resonant, double jd, std::size_t begin,
              std::size_t end, BatchStates& out) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  double* columns[6];
  outputColumns(out, columns);
  const Vd when = hn::Set(d, jd);
  const Vd minutesPerDay = hn::Set(d, 1440.0);
  for (std::size_t row = begin / lanes * lanes; row < end; row += lanes) {
    const Vd t = (when - hn::LoadU(d, c.column(Sdp4Field::EpochJd) + row)) * minutesPerDay;
    StoreState(d, Sdp4Lanes(d, RowSource<Sdp4Field>{c, row}, resonant, t), columns, row);
  }
}

void Sdp4Times(const double* values, const ResonantSatellite* resonant, const double* tsince, std::size_t count,
               BatchStates& out) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  double* columns[6];
  outputColumns(out, columns);
  for (std::size_t row = 0; row < count; row += lanes) {
    const Vd t = hn::LoadU(d, tsince + row);
    StoreState(d, Sdp4Lanes(d, BroadcastSource<Sdp4Field>{values}, resonant, t), columns, row);
  }
}

}  // namespace norvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/propagation/propagate.h"
#include "core/propagation/sdp4.h"

namespace norvane {

HWY_EXPORT(Sdp4Rows);
HWY_EXPORT(Sdp4Times);

DeepSecularLane ResonantSatellite::secular(double t) const {
  DeepSpaceState state = deep;
  ModelFlags f = flags;
  DeepExchange& x = state.exchange;
  x.xll = work.xmo + xmdot * t;
  x.omgasm = work.omegao + omgdot * t;
  x.xnodes = work.xnodeo + xnodot * t + xnodcf * (t * t);
  x.xn = xnodp;
  x.t = t;
  norvane::deep(state, f, 2, work);
  return {x.xll, x.omgasm, x.xnodes, x.em, x.xinc, x.xn};
}

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
    double resonantIndex = -1.0;
    if (flags.resonance != 0) {
      resonantIndex = static_cast<double>(resonant_.size());
      resonant_.push_back({w, k.xnodp, k.xmdot, k.omgdot, k.xnodot, k.xnodcf, s, flags});
    }
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
        moon.h3, resonantIndex, epochToJulian(w.epoch)};
    static_assert(std::size(values) == SoaColumns<Sdp4Field>::kFields);
    for (std::size_t f = 0; f < std::size(values); ++f) columns_.at(static_cast<Sdp4Field>(f), i) = values[f];
  }
  columns_.fillPadding();
}

void BatchSdp4::propagate(double jd, BatchStates& out) const {
  out.resize(size());
  propagateRows(jd, 0, size(), out);
}

void BatchSdp4::propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const {
  if (begin >= end) return;
  HWY_DYNAMIC_DISPATCH(Sdp4Rows)(columns_, resonant_.data(), jd, begin, end, out);
}

void BatchSdp4::propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const {
  out.resize(jds.size());
  if (jds.empty() || index >= size()) return;
  const auto values = columns_.row(index);
  const double epoch = values[static_cast<std::size_t>(Sdp4Field::EpochJd)];
  std::vector<double> tsince(out.padded());
  for (std::size_t i = 0; i < tsince.size(); ++i) tsince[i] = (jds[std::min(i, jds.size() - 1)] - epoch) * 1440.0;
  HWY_DYNAMIC_DISPATCH(Sdp4Times)(values.data(), resonant_.data(), tsince.data(), out.padded(), out);
}

}  // namespace norvane
#endif  // HWY_ONCE
