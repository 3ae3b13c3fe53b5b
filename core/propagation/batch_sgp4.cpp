// The batch SGP4, compiled once per SIMD target by Highway's foreach_target;
// the best target the processor supports is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "core/propagation/batch_sgp4.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

#include "core/propagation/batch_lyddane-inl.h"
#include "core/propagation/batch_sgp4.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE {

using namespace batch;

namespace {

// The update of sgp4.cpp per lane at t minutes from each lane's epoch.
template <class Source>
HWY_INLINE StateLanes Sgp4Lanes(Tag d, const Source& source, Vd t) {
  using enum Sgp4Field;
  const auto k = [&](Sgp4Field f) { return source(d, f); };
  const Vd one = hn::Set(d, 1.0);

  // Secular gravity and linear drag.
  const Vd xmdf = k(Xmo) + k(Xmdot) * t;
  const Vd omgadf = k(Omegao) + k(Omgdot) * t;
  const Vd xnoddf = k(Xnodeo) + k(Xnodot) * t;
  Vd omega = omgadf;
  Vd xmp = xmdf;
  const Vd tsq = t * t;
  const Vd xnode = xnoddf + k(Xnodcf) * tsq;
  Vd tempa = one - k(C1) * t;
  Vd tempe = k(Bstar) * k(C4) * t;
  Vd templ = k(T2cof) * tsq;

  // Higher-order drag, kept only in the lanes whose perigee allows it.
  const Md full = k(FullDrag) != hn::Zero(d);
  if (!hn::AllFalse(d, full)) {
    const Vd delomg = k(Omgcof) * t;
    const Vd delmRoot = one + k(Eta) * CosOf(d, xmdf);
    const Vd delm = k(Xmcof) * (delmRoot * delmRoot * delmRoot - k(Delmo));
    const Vd domdm = delomg + delm;
    const Vd xmpFull = xmdf + domdm;
    xmp = hn::IfThenElse(full, xmpFull, xmdf);
    omega = hn::IfThenElse(full, omgadf - domdm, omgadf);
    const Vd tcube = tsq * t;
    const Vd tfour = t * tcube;
    tempa = hn::IfThenElse(full, tempa - k(D2) * tsq - k(D3) * tcube - k(D4) * tfour, tempa);
    tempe = hn::IfThenElse(full, tempe + k(Bstar) * k(C5) * (SinOf(d, xmpFull) - k(Sinmo)), tempe);
    templ = hn::IfThenElse(full, templ + k(T3cof) * tcube + tfour * (k(T4cof) + t * k(T5cof)), templ);
  }

  MeanLanes m;
  m.a = k(Aodp) * tempa * tempa;
  m.e = k(Eo) - tempe;
  m.omega = omega;
  m.xnode = xnode;
  m.xl = xmp + omega + xnode + k(Xnodp) * templ;
  m.xinc = k(Xincl);
  const ShortPeriodLanes sp{k(Cosio), k(Sinio), k(X3thm1), k(X1mth2), k(X7thm1), k(Xlcof), k(Aycof)};
  return LyddaneLanes(d, m, sp);
}

}  // namespace

void Sgp4Gathered(const double* rowMajor, const std::uint32_t* rows, const double* jds,
                  const std::uint32_t* targets, std::size_t count, BatchStates& out) {
  PropagateGathered<Sgp4Field>(rowMajor, rows, jds, targets, count, out,
                    [](Tag d, const auto& source, Vd t) { return Sgp4Lanes(d, source, t); });
}

void Sgp4Rows(const SoaColumns<Sgp4Field>& c, double jd, std::size_t begin, std::size_t end, BatchStates& out) {
  PropagateRows(c, jd, begin, end, out, [](Tag d, const auto& source, Vd t) { return Sgp4Lanes(d, source, t); });
}

void Sgp4Times(const double* values, const double* tsince, std::size_t count, BatchStates& out) {
  PropagateTimes<Sgp4Field>(values, tsince, count, out,
                            [](Tag d, const auto& source, Vd t) { return Sgp4Lanes(d, source, t); });
}

std::int64_t RunningTarget() { return HWY_TARGET; }

}  // namespace norvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/propagation/propagate.h"
#include "core/propagation/sgp4.h"

namespace norvane {

HWY_EXPORT(Sgp4Rows);
HWY_EXPORT(Sgp4Times);
HWY_EXPORT(Sgp4Gathered);
HWY_EXPORT(RunningTarget);

const char* batchTargetName() { return hwy::TargetName(HWY_DYNAMIC_DISPATCH(RunningTarget)()); }

BatchSgp4::BatchSgp4(std::span<const Satellite> satellites) {
  using enum Sgp4Field;
  columns_.resize(satellites.size());
  for (std::size_t i = 0; i < satellites.size(); ++i) {
    WorkingSet w;
    initialiseWorkingSet(w, satellites[i]);
    Sgp4Constants k;
    ModelFlags flags;
    StateVector r, v;
    sgp4(k, flags, 0.0, w, r, v, 0);
    const model::ShortPeriodCoefficients& sp = k.shortPeriod;
    const double values[] = {w.xmo, w.omegao, w.xnodeo, w.bstar, w.eo, w.xincl,
                             k.aodp, k.xnodp, k.c1, k.c4, k.c5, k.d2, k.d3, k.d4,
                             k.t2cof, k.t3cof, k.t4cof, k.t5cof,
                             k.xmdot, k.omgdot, k.xnodot, k.omgcof, k.xmcof, k.xnodcf, k.eta, k.delmo, k.sinmo,
                             sp.cosio, sp.sinio, sp.x3thm1, sp.x1mth2, sp.x7thm1, sp.xlcof, sp.aycof,
                             flags.simpleDrag == 0 ? 1.0 : 0.0, epochToJulian(w.epoch)};
    static_assert(std::size(values) == SoaColumns<Sgp4Field>::kFields);
    for (std::size_t f = 0; f < std::size(values); ++f) columns_.at(static_cast<Sgp4Field>(f), i) = values[f];
  }
  columns_.fillPadding();
  rowMajor_ = rowMajorCopy(columns_);
}

void BatchSgp4::propagate(double jd, BatchStates& out) const {
  out.resize(size());
  propagateRows(jd, 0, size(), out);
}

void BatchSgp4::propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const {
  if (begin >= end) return;
  HWY_DYNAMIC_DISPATCH(Sgp4Rows)(columns_, jd, begin, end, out);
}

void BatchSgp4::propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const {
  out.resize(jds.size());
  if (jds.empty() || index >= size()) return;
  const auto values = columns_.row(index);
  const double epoch = values[static_cast<std::size_t>(Sgp4Field::EpochJd)];
  std::vector<double> tsince(out.padded());
  for (std::size_t i = 0; i < tsince.size(); ++i) tsince[i] = (jds[std::min(i, jds.size() - 1)] - epoch) * 1440.0;
  HWY_DYNAMIC_DISPATCH(Sgp4Times)(values.data(), tsince.data(), out.padded(), out);
}

void BatchSgp4::propagateGathered(std::span<const std::uint32_t> rows, std::span<const double> jds,
                                  std::span<const std::uint32_t> targets, BatchStates& out) const {
  if (rows.empty()) return;
  HWY_DYNAMIC_DISPATCH(Sgp4Gathered)(rowMajor_.data(), rows.data(), jds.data(), targets.data(), rows.size(), out);
}

}  // namespace norvane
#endif  // HWY_ONCE
