// Vector forms of the steps SGP4 and SDP4 share: Kepler's equation, the
// long- and short-period output, and the loops that feed the models' lanes. Each lane follows the
// scalar code of lyddane_output.h and kepler.h operation for operation; only
// sine, cosine and arctangent come from the vector maths library.
//
// Included once per SIMD target (Highway's per-target include guard).
#if defined(NORVANE_BATCH_LYDDANE_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef NORVANE_BATCH_LYDDANE_INL_H_
#undef NORVANE_BATCH_LYDDANE_INL_H_
#else
#define NORVANE_BATCH_LYDDANE_INL_H_
#endif

#include <cstdint>

#include "core/propagation/batch_angles-inl.h"
#include "core/propagation/batch_layout.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/propagate.h"
#include "hwy/cache_control.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE::batch {

// Reads the columns of the satellites in the lanes that start at row.
template <class Field>
struct RowSource {
  const SoaColumns<Field>& columns;
  std::size_t row;
  Vd operator()(Tag d, Field f) const { return hn::LoadU(d, columns.column(f) + row); }
};

// One satellite's values (a row indexed by field) in every lane.
template <class Field>
struct BroadcastSource {
  const double* values;
  Vd operator()(Tag d, Field f) const { return hn::Set(d, values[static_cast<std::size_t>(f)]); }
};

// Reads lane i's values from a lane-major buffer: field f of lane i at
// values[f * lanes + i], filled from the requested satellites' rows.
template <class Field>
struct LaneSource {
  const double* values;
  std::size_t lanes;
  Vd operator()(Tag d, Field f) const { return hn::Load(d, values + static_cast<std::size_t>(f) * lanes); }
};

// Mean elements at one time, as model::MeanElements.
struct MeanLanes {
  Vd a, e, omega, xnode, xl, xinc;
};

// Epoch quantities of the short-period terms, as model::ShortPeriodCoefficients.
struct ShortPeriodLanes {
  Vd cosio, sinio, x3thm1, x1mth2, x7thm1, xlcof, aycof;
};

// Position in earth radii and velocity in earth radii per minute.
struct StateLanes {
  Vd x, y, z, vx, vy, vz;
};

// Kepler's equation for the eccentric longitude with the scalar stopping
// rule per lane: a lane keeps the sine and cosine of the estimate a pass
// started from once that pass's correction is within the tolerance; lanes
// that never converge use the last improved estimate.
HWY_INLINE void KeplerLanes(Tag d, Vd capu, Vd axn, Vd ayn, Vd& sinE, Vd& cosE) {
  const Vd one = hn::Set(d, 1.0);
  const Vd tolerance = hn::Set(d, model::kKeplerTolerance);
  Vd e = capu;
  Md done = hn::FirstN(d, 0);
  sinE = hn::Zero(d);
  cosE = hn::Zero(d);
  for (int pass = 0; pass < model::kKeplerPasses; ++pass) {
    const SinCosLanes sc = SinCos(d, e);
    const Vd s = sc.sin;
    const Vd c = sc.cos;
    const Vd next = e + (capu - e + axn * s - ayn * c) / (one - axn * c - ayn * s);
    const Md settled = hn::AndNot(done, hn::Abs(next - e) <= tolerance);
    sinE = hn::IfThenElse(settled, s, sinE);
    cosE = hn::IfThenElse(settled, c, cosE);
    done = hn::Or(done, settled);
    e = hn::IfThenElse(done, e, next);
    if (hn::AllTrue(d, done)) return;
  }
  const SinCosLanes last = SinCos(d, e);
  sinE = hn::IfThenElse(done, sinE, last.sin);
  cosE = hn::IfThenElse(done, cosE, last.cos);
}

// model::lyddaneOutput per lane.
HWY_INLINE StateLanes LyddaneLanes(Tag d, const MeanLanes& m, const ShortPeriodLanes& k) {
  const Vd one = hn::Set(d, 1.0);
  const Vd half = hn::Set(d, 0.5);
  const Vd xke = hn::Set(d, model::kXke);
  const Vd beta2 = one - m.e * m.e;
  const Vd xn = xke / (m.a * hn::Sqrt(m.a));

  const SinCosLanes omega = SinCos(d, m.omega);
  const Vd axn = m.e * omega.cos;
  const Vd tlp = one / (m.a * beta2);
  const Vd xll = tlp * k.xlcof * axn;
  const Vd aynl = tlp * k.aycof;
  const Vd xlt = m.xl + xll;
  const Vd ayn = m.e * omega.sin + aynl;

  const Vd capu = FMod2pLanes(d, xlt - m.xnode);
  Vd sinE, cosE;
  KeplerLanes(d, capu, axn, ayn, sinE, cosE);

  const Vd ecose = axn * cosE + ayn * sinE;
  const Vd esine = axn * sinE - ayn * cosE;
  const Vd elsq = axn * axn + ayn * ayn;
  const Vd pl = m.a * (one - elsq);
  const Vd r = m.a * (one - ecose);
  const Vd rdot = xke * hn::Sqrt(m.a) * esine / r;
  const Vd rfdot = xke * hn::Sqrt(pl) / r;
  const Vd betal = hn::Sqrt(one - elsq);
  const Vd aOverR = m.a / r;
  const Vd esineTerm = esine / (one + betal);
  const Vd cosu = aOverR * (cosE - axn + ayn * esineTerm);
  const Vd sinu = aOverR * (sinE - ayn - axn * esineTerm);
  const Vd u = AcTanLanes(d, sinu, cosu);
  const Vd sin2u = hn::Set(d, 2.0) * sinu * cosu;
  const Vd cos2u = hn::Set(d, 2.0) * cosu * cosu - one;
  const Vd sp1 = hn::Set(d, model::kCk2) / pl;
  const Vd sp2 = sp1 / pl;
  const Vd oneAndHalf = hn::Set(d, 1.5);

  const Vd rk = r * (one - oneAndHalf * sp2 * betal * k.x3thm1) + half * sp1 * k.x1mth2 * cos2u;
  const Vd uk = u - hn::Set(d, 0.25) * sp2 * k.x7thm1 * sin2u;
  const Vd xnodek = m.xnode + oneAndHalf * sp2 * k.cosio * sin2u;
  const Vd xinck = m.xinc + oneAndHalf * sp2 * k.cosio * k.sinio * cos2u;
  const Vd rdotk = rdot - xn * sp1 * k.x1mth2 * sin2u;
  const Vd rfdotk = rfdot + xn * sp1 * (k.x1mth2 * cos2u + oneAndHalf * k.x3thm1);

  const SinCosLanes ukTrig = SinCos(d, uk);
  const SinCosLanes ikTrig = SinCos(d, xinck);
  const SinCosLanes nokTrig = SinCos(d, xnodek);
  const Vd sinuk = ukTrig.sin;
  const Vd cosuk = ukTrig.cos;
  const Vd sinik = ikTrig.sin;
  const Vd cosik = ikTrig.cos;
  const Vd sinnok = nokTrig.sin;
  const Vd cosnok = nokTrig.cos;
  const Vd xmx = hn::Neg(sinnok) * cosik;
  const Vd xmy = cosnok * cosik;
  const Vd ux = xmx * sinuk + cosnok * cosuk;
  const Vd uy = xmy * sinuk + sinnok * cosuk;
  const Vd uz = sinik * sinuk;
  const Vd vx = xmx * cosuk - cosnok * sinuk;
  const Vd vy = xmy * cosuk - sinnok * sinuk;
  const Vd vz = sinik * cosuk;
  return {rk * ux, rk * uy, rk * uz, rdotk * ux + rfdotk * vx, rdotk * uy + rfdotk * vy,
          rdotk * uz + rfdotk * vz};
}

// Scales a state to km and km/s and stores it at row of out's columns.
HWY_INLINE void StoreState(Tag d, const StateLanes& s, double* const columns[6], std::size_t row) {
  const Vd km = hn::Set(d, kKilometresPerEarthRadius);
  const Vd kms = hn::Set(d, kKmPerSecondPerEarthRadiusPerMinute);
  hn::StoreU(s.x * km, d, columns[0] + row);
  hn::StoreU(s.y * km, d, columns[1] + row);
  hn::StoreU(s.z * km, d, columns[2] + row);
  hn::StoreU(s.vx * kms, d, columns[3] + row);
  hn::StoreU(s.vy * kms, d, columns[4] + row);
  hn::StoreU(s.vz * kms, d, columns[5] + row);
}

// Runs a model's lane kernel over rows [begin, end) of c at jd (UTC days),
// each lane at its own time since epoch, and stores the states in out.
template <class Field, class Kernel>
HWY_INLINE void PropagateRows(const SoaColumns<Field>& c, double jd, std::size_t begin, std::size_t end,
                              BatchStates& out, Kernel kernel) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  double* columns[6];
  for (std::size_t i = 0; i < 6; ++i) columns[i] = out.column(static_cast<StateField>(i));
  const Vd when = hn::Set(d, jd);
  const Vd minutesPerDay = hn::Set(d, 1440.0);
  for (std::size_t row = begin / lanes * lanes; row < end; row += lanes) {
    const Vd t = (when - hn::LoadU(d, c.column(Field::EpochJd) + row)) * minutesPerDay;
    StoreState(d, kernel(d, RowSource<Field>{c, row}, t), columns, row);
  }
}

// Runs a model's lane kernel for one satellite's values at count times
// (minutes since epoch) and stores the states in out.
template <class Field, class Kernel>
HWY_INLINE void PropagateTimes(const double* values, const double* tsince, std::size_t count, BatchStates& out,
                               Kernel kernel) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  double* columns[6];
  for (std::size_t i = 0; i < 6; ++i) columns[i] = out.column(static_cast<StateField>(i));
  for (std::size_t row = 0; row < count; row += lanes) {
    StoreState(d, kernel(d, BroadcastSource<Field>{values}, hn::LoadU(d, tsince + row)), columns, row);
  }
}

// Copies field f of the row at laneRows[i] to values[f * lanes + i] for the
// first kFields fields. With four lanes the rows are read four fields at a
// time and transposed in registers (rows are padded to whole cache lines, so
// the last block stays inside its row).
template <std::size_t kFields>
HWY_INLINE void FillLanes(Tag d, const double* const* laneRows, double* values) {
#if HWY_TARGET == HWY_AVX2
  for (std::size_t f = 0; f < kFields; f += 4) {
    const Vd r0 = hn::LoadU(d, laneRows[0] + f);
    const Vd r1 = hn::LoadU(d, laneRows[1] + f);
    const Vd r2 = hn::LoadU(d, laneRows[2] + f);
    const Vd r3 = hn::LoadU(d, laneRows[3] + f);
    const Vd low01 = hn::InterleaveLower(d, r0, r1);
    const Vd high01 = hn::InterleaveUpper(d, r0, r1);
    const Vd low23 = hn::InterleaveLower(d, r2, r3);
    const Vd high23 = hn::InterleaveUpper(d, r2, r3);
    hn::Store(hn::ConcatLowerLower(d, low23, low01), d, values + f * 4);
    hn::Store(hn::ConcatLowerLower(d, high23, high01), d, values + (f + 1) * 4);
    hn::Store(hn::ConcatUpperUpper(d, low23, low01), d, values + (f + 2) * 4);
    hn::Store(hn::ConcatUpperUpper(d, high23, high01), d, values + (f + 3) * 4);
  }
#else
  const std::size_t lanes = hn::Lanes(d);
  for (std::size_t i = 0; i < lanes; ++i) {
    for (std::size_t f = 0; f < kFields; ++f) values[f * lanes + i] = laneRows[i][f];
  }
#endif
}

// Runs a model's lane kernel for count requests: satellite rows[j] of the
// row-major values (kRowStride<Field> doubles a row) at UTC Julian date
// jds[j], its state stored at row targets[j] of out. Each vector's values
// are copied from its rows into a lane-major buffer (on processors without
// fast gathers this beats a gather per field). A last short vector repeats its
// final request in the spare lanes and stores only the real ones.
template <class Field, class Kernel>
HWY_INLINE void PropagateGathered(const double* rowMajor, const std::uint32_t* rows, const double* jds,
                                  const std::uint32_t* targets, std::size_t count, BatchStates& out,
                                  Kernel kernel) {
  constexpr std::size_t kFields = SoaColumns<Field>::kFields;
  constexpr std::size_t kStride = kRowStride<Field>;
  constexpr std::size_t kMaxLanes = HWY_MAX_BYTES / sizeof(double);
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  HWY_ALIGN double values[kStride * kMaxLanes];
  const double* laneRows[kMaxLanes];
  HWY_ALIGN double laneJds[kMaxLanes];
  HWY_ALIGN double states[6][kMaxLanes];
  double* const lanesOut[6] = {states[0], states[1], states[2], states[3], states[4], states[5]};
  double* columns[6];
  for (std::size_t i = 0; i < 6; ++i) columns[i] = out.column(static_cast<StateField>(i));
  const Vd minutesPerDay = hn::Set(d, 1440.0);
  const LaneSource<Field> source{values, lanes};
  for (std::size_t j = 0; j < count; j += lanes) {
    const std::size_t n = count - j < lanes ? count - j : lanes;
    // The rows and targets two vectors ahead are fetched while this one computes.
    for (std::size_t ahead = j + 2 * lanes; ahead < j + 3 * lanes && ahead < count; ++ahead) {
      const double* row = rowMajor + static_cast<std::size_t>(rows[ahead]) * kStride;
      for (std::size_t line = 0; line < kStride; line += 8) hwy::Prefetch(row + line);
      for (std::size_t f = 0; f < 6; ++f) hwy::Prefetch(columns[f] + targets[ahead]);
    }
    for (std::size_t i = 0; i < lanes; ++i) {
      const std::size_t r = j + (i < n ? i : n - 1);
      laneRows[i] = rowMajor + static_cast<std::size_t>(rows[r]) * kStride;
      laneJds[i] = jds[r];
    }
    FillLanes<kFields>(d, laneRows, values);
    const Vd t = (hn::Load(d, laneJds) - source(d, Field::EpochJd)) * minutesPerDay;
    StoreState(d, kernel(d, source, t), lanesOut, 0);
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t f = 0; f < 6; ++f) columns[f][targets[j + i]] = states[f][i];
    }
  }
}

}  // namespace norvane::HWY_NAMESPACE::batch
HWY_AFTER_NAMESPACE();

#endif  // NORVANE_BATCH_LYDDANE_INL_H_
