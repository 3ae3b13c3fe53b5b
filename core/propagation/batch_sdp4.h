#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "core/elements/satellite.h"
#include "core/propagation/batch_layout.h"
#include "core/propagation/deep_space.h"
#include "core/propagation/model_flags.h"
#include "core/propagation/working_set.h"

namespace norvane {

// Per-satellite columns of the batch SDP4: the element set in model units,
// SDP4's epoch constants, the deep-space secular rates, the Sun's and the
// Moon's periodic coefficients and mean anomalies at epoch.
enum class Sdp4Field {
  Xmo, Omegao, Xnodeo, Bstar, Eo, Xincl,
  Xnodp, C1, C4, T2cof, Xnodcf, Xmdot, Omgdot, Xnodot,
  Cosio, Sinio, X3thm1, X1mth2, X7thm1, Xlcof, Aycof,
  Sse, Ssi, Ssl, Ssg, Ssh, Zmos, Zmol,
  SunE2, SunE3, SunI2, SunI3, SunL2, SunL3, SunL4, SunGh2, SunGh3, SunGh4, SunH2, SunH3,
  MoonE2, MoonE3, MoonI2, MoonI3, MoonL2, MoonL3, MoonL4, MoonGh2, MoonGh3, MoonGh4, MoonH2, MoonH3,
  Resonant,  // index into the resonant satellites, or -1
  EpochJd,   // UTC Julian date of the element epoch
  Count
};

// The deep-space elements after the secular step at one time.
struct DeepSecularLane {
  double xll = 0, omgasm = 0, xnodes = 0, em = 0, xinc = 0, xn = 0;
};

// A satellite in the 12- or 24-hour resonance: its secular step integrates
// the resonance terms, which makes lanes diverge, so it runs the scalar
// deep-space routine from the epoch state.
struct ResonantSatellite {
  WorkingSet work;
  double xnodp = 0, xmdot = 0, omgdot = 0, xnodot = 0, xnodcf = 0;
  DeepSpaceState deep;
  ModelFlags flags;

  // The secular and resonance step at t minutes from epoch (const: the
  // integrator runs on a copy of the epoch state).
  DeepSecularLane secular(double t) const;
};

// SDP4 for many deep-space element sets at once, several satellites per SIMD
// register, on the best instruction set the processor offers. Each result is
// the scalar model's first call after initialisation at that time (the
// lunar-solar terms evaluated at that time), to well under a millimetre.
class BatchSdp4 {
 public:
  BatchSdp4() = default;
  // Element sets in file units; every one is taken as deep space.
  explicit BatchSdp4(std::span<const Satellite> satellites);

  std::size_t size() const { return columns_.rows(); }
  std::size_t resonantCount() const { return resonant_.size(); }
  const SoaColumns<Sdp4Field>& columns() const { return columns_; }

  // Every satellite at UTC Julian date jd; out gets one row per satellite.
  void propagate(double jd, BatchStates& out) const;
  // Rows [begin, end) only (rounded out to whole vectors); out must already
  // be sized for size() rows.
  void propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const;
  // Satellite index at each of the Julian dates; out gets one row per date.
  void propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const;

 private:
  SoaColumns<Sdp4Field> columns_;
  std::vector<ResonantSatellite> resonant_;
};

}  // namespace norvane
