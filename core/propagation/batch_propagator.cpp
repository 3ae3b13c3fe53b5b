#include "core/propagation/batch_propagator.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace norvane {
BatchPropagator::Model BatchPropagator::modelOf(const Satellite& satellite) {
  if (!(satellite.xno > 0.0)) return Model::None;
  Propagator propagator(satellite);
  const OrbitState s = propagator.stateSince(0.0);
  double sum = 0.0;
  for (std::size_t i = 0; i < 3; ++i) sum += s.positionKm[i] + s.velocityKmS[i];
  if (!std::isfinite(sum)) return Model::None;
  return propagator.isDeepSpace() ? Model::DeepSpace : Model::NearEarth;
}

BatchPropagator::BatchPropagator(std::span<const Satellite> satellites) {
  places_.resize(satellites.size());
  std::vector<Satellite> nearEarth;
  std::vector<Satellite> deepSpace;
  for (std::size_t i = 0; i < satellites.size(); ++i) {
    const Model model = modelOf(satellites[i]);
    if (model == Model::None) continue;
    std::vector<Satellite>& batch = model == Model::DeepSpace ? deepSpace : nearEarth;
    places_[i] = {model, static_cast<std::uint32_t>(batch.size())};
    batch.push_back(satellites[i]);
  }
  nearEarth_ = BatchSgp4(nearEarth);
  deepSpace_ = BatchSdp4(deepSpace);
}

void BatchPropagator::statesAt(std::span<const std::uint32_t> satellites, std::span<const double> jds,
                               BatchStates& out) const {
  const std::size_t count = satellites.size();
  out.resize(count);
  // The requests of each model, in the order they came.
  struct Requests {
    std::vector<std::uint32_t> rows, targets;
    std::vector<double> jds;
  };
  Requests near, deep;
  for (Requests* r : {&near, &deep}) {
    r->rows.reserve(count);
    r->targets.reserve(count);
    r->jds.reserve(count);
  }
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  for (std::size_t k = 0; k < count; ++k) {
    const Place place = places_[satellites[k]];
    if (place.model == Model::None) {
      for (std::size_t f = 0; f < 6; ++f) out.at(static_cast<StateField>(f), k) = kNaN;
      continue;
    }
    Requests& r = place.model == Model::NearEarth ? near : deep;
    r.rows.push_back(place.row);
    r.targets.push_back(static_cast<std::uint32_t>(k));
    r.jds.push_back(jds[k]);
  }
  nearEarth_.propagateGathered(near.rows, near.jds, near.targets, out);
  deepSpace_.propagateGathered(deep.rows, deep.jds, deep.targets, out);
}

}  // namespace norvane
