#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/elements/satellite.h"
#include "core/propagation/batch_layout.h"

namespace norvane {

// Per-satellite columns of the batch SGP4: the element set in model units,
// the constants the scalar initialisation computes, and the epoch.
enum class Sgp4Field {
  Xmo, Omegao, Xnodeo, Bstar, Eo, Xincl,
  Aodp, Xnodp, C1, C4, C5, D2, D3, D4, T2cof, T3cof, T4cof, T5cof,
  Xmdot, Omgdot, Xnodot, Omgcof, Xmcof, Xnodcf, Eta, Delmo, Sinmo,
  Cosio, Sinio, X3thm1, X1mth2, X7thm1, Xlcof, Aycof,
  FullDrag,  // 1 when the higher-order drag terms apply (perigee of 220 km or more)
  EpochJd,   // UTC Julian date of the element epoch
  Count
};

// SGP4 for many near-Earth element sets at once, several satellites per SIMD
// register. Each satellite is initialised by the scalar model, whose
// constants are then laid out in columns; the update runs in vector lanes on
// the best instruction set the processor offers (chosen at run time). The
// results equal the scalar model's to well under a millimetre.
class BatchSgp4 {
 public:
  BatchSgp4() = default;
  // Element sets in file units; every one is taken as near-Earth.
  explicit BatchSgp4(std::span<const Satellite> satellites);

  std::size_t size() const { return columns_.rows(); }
  const SoaColumns<Sgp4Field>& columns() const { return columns_; }

  // Every satellite at UTC Julian date jd; out gets one row per satellite.
  void propagate(double jd, BatchStates& out) const;
  // Rows [begin, end) only (rounded out to whole vectors); out must already
  // be sized for size() rows. Lets threads share one batch.
  void propagateRows(double jd, std::size_t begin, std::size_t end, BatchStates& out) const;
  // Satellite index at each of the Julian dates; out gets one row per date.
  void propagateTimes(std::size_t index, std::span<const double> jds, BatchStates& out) const;
  // Satellite rows[j] at UTC Julian date jds[j] into row targets[j] of out,
  // which the caller has sized; the three spans have one length, every row
  // is below size() and every target below out.rows().
  void propagateGathered(std::span<const std::uint32_t> rows, std::span<const double> jds,
                         std::span<const std::uint32_t> targets, BatchStates& out) const;

 private:
  SoaColumns<Sgp4Field> columns_;
  std::vector<double> rowMajor_;  // the columns' rows side by side, for gathering
};

// Name of the SIMD instruction set the batch models run on here, such as
// "AVX2" or "AVX3" (AVX-512).
const char* batchTargetName();

}  // namespace norvane
