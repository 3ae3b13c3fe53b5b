#include <cstddef>

#include "core/analysis/pass_geometry.h"

namespace norvane {

void SkyView::sampleMany(std::span<const double> jds, const BatchStates& states, std::span<SkySample> out) {
  for (std::size_t k = 0; k < jds.size(); ++k) {
    OrbitState s;
    for (std::size_t i = 0; i < 3; ++i) {
      s.positionKm[i] = states.at(static_cast<StateField>(i), k);
      s.velocityKmS[i] = states.at(static_cast<StateField>(i + 3), k);
    }
    out[k] = sample(jds[k], s);
  }
}

}  // namespace norvane
