#include "core/propagation/batch_propagator.h"

namespace norvane {

BatchPropagator::BatchPropagator(std::span<const Satellite> satellites) {
  models_.reserve(satellites.size());
  for (const Satellite& s : satellites) models_.emplace_back(s);
}

void BatchPropagator::statesAt(std::span<const std::uint32_t> satellites, std::span<const double> jds,
                               BatchStates& out) const {
  out.resize(satellites.size());
  for (std::size_t k = 0; k < satellites.size(); ++k) {
    Propagator fresh = models_[satellites[k]];
    const OrbitState s = fresh.stateAt(jds[k]);
    for (std::size_t i = 0; i < 3; ++i) {
      out.at(static_cast<StateField>(i), k) = s.positionKm[i];
      out.at(static_cast<StateField>(i + 3), k) = s.velocityKmS[i];
    }
  }
}

}  // namespace norvane
