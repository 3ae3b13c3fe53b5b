#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/elements/satellite.h"
#include "core/propagation/batch_layout.h"

namespace norvane {

// Per-satellite columns of the batch SDP4: the element set in model units,
// SDP4's epoch constants, the deep-space secular rates, the Sun's and the
// Moon's periodic coefficients and mean anomalies at epoch, and the
// resonance terms.
enum class Sdp4Field {
  Xmo, Omegao, Xnodeo, Bstar, Eo, Xincl,
  Xnodp, C1, C4, T2cof, Xnodcf, Xmdot, Omgdot, Xnodot,
  Cosio, Sinio, X3thm1, X1mth2, X7thm1, Xlcof, Aycof,
  Sse, Ssi, Ssl, Ssg, Ssh, Zmos, Zmol,
  SunE2, SunE3, SunI2, SunI3, SunL2, SunL3, SunL4, SunGh2, SunGh3, SunGh4, SunH2, SunH3,
  MoonE2, MoonE3, MoonI2, MoonI3, MoonL2, MoonL3, MoonL4, MoonGh2, MoonGh3, MoonGh4, MoonH2, MoonH3,
  // The resonance: 0 none, 1 the 12-hour, 2 the 24-hour (synchronous) one;
  // the integrator's start, rates and coefficients.
  Resonance, Xlamo, Xfact, Thgr, Del1, Del2, Del3,
  D2201, D2211, D3210, D3222, D4410, D4422, D5220, D5232, D5421, D5433,
  EpochJd,   // UTC Julian date of the element epoch
  Count
};

// SDP4 for many deep-space element sets at once, several satellites per SIMD
// register, on the best instruction set the processor offers. Each result is
// the scalar model's first call after initialisation at that time (the
// lunar-solar terms evaluated at that time, the resonance integrated from
// epoch), to well under a millimetre. Lanes integrate the resonance for as
// many steps as their own time needs; a vector waits for its longest lane.
class BatchSdp4 {
 public:
  BatchSdp4() = default;
  // Element sets in file units; every one is taken as deep space.
  explicit BatchSdp4(std::span<const Satellite> satellites);

  std::size_t size() const { return columns_.rows(); }
  std::size_t resonantCount() const { return resonant_; }
  const SoaColumns<Sdp4Field>& columns() const { return columns_; }

  // Every satellite at UTC Julian date jd; out gets one row per satellite.
  void propagate(double jd, BatchStates& out) const;
  // Rows [begin, end) only (rounded out to whole vectors); out must already
  // be sized for size() rows.
  void propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const;
  // Satellite index at each of the Julian dates; out gets one row per date.
  void propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const;
  // Satellite rows[j] at UTC Julian date jds[j] into row targets[j] of out,
  // which the caller has sized; the three spans have one length, every row
  // is below size() and every target below out.rows().
  void propagateGathered(std::span<const std::uint32_t> rows, std::span<const double> jds,
                         std::span<const std::uint32_t> targets, BatchStates& out) const;

 private:
  SoaColumns<Sdp4Field> columns_;
  std::vector<double> rowMajor_;  // the columns' rows side by side, for gathering
  std::size_t resonant_ = 0;
};

}  // namespace norvane
