#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/elements/satellite.h"
#include "core/propagation/batch_layout.h"
#include "core/propagation/batch_sdp4.h"
#include "core/propagation/batch_sgp4.h"
#include "core/propagation/propagator.h"

namespace norvane {

// States of many satellites, each at a time of its own, in one call: what a
// search over a whole catalogue asks for when every satellite has reached a
// different point of its own search. Each state equals the first call of a
// freshly initialised Propagator (SGP4 or SDP4 by the orbit's period) at that
// time, to well under a millimetre.
class BatchPropagator {
 public:
  BatchPropagator() = default;
  explicit BatchPropagator(std::span<const Satellite> satellites);

  std::size_t size() const { return places_.size(); }

  // Row k of out gets satellite satellites[k] at UTC Julian date jds[k]; out
  // is resized to satellites.size() rows. Both spans have the same length and
  // every index is below size(). A satellite without an orbit gets NaN.
  void statesAt(std::span<const std::uint32_t> satellites, std::span<const double> jds, BatchStates& out) const;

 private:
  // Which batch holds a satellite, and its row there.
  enum class Model : std::uint8_t { None, NearEarth, DeepSpace };
  struct Place {
    Model model = Model::None;
    std::uint32_t row = 0;
  };

  // The model the scalar front end runs for a satellite, or None when it
  // gives no usable state at the element epoch (a mean motion of zero or
  // less, or elements the model cannot follow).
  static Model modelOf(const Satellite& satellite);

  std::vector<Place> places_;
  BatchSgp4 nearEarth_;
  BatchSdp4 deepSpace_;
};

}  // namespace norvane
