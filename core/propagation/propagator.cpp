#include "core/propagation/propagator.h"

#include "core/propagation/propagate.h"

namespace norvane {

Propagator::Propagator(const Satellite& satellite, ModelFamily family)
    : mode_(family == ModelFamily::Sgp8Sdp8 ? kSgp8Mode : 0) {
  initialiseWorkingSet(work_, satellite);
  epochJd_ = epochToJulian(work_.epoch);
  // The first model call computes the constants; later calls reuse them.
  StateVector position;
  StateVector velocity;
  runModel(models_, 0.0, work_, position, velocity, 0, mode_);
}

OrbitState Propagator::stateSince(double minutesSinceEpoch) {
  StateVector position;
  StateVector velocity;
  runModel(models_, minutesSinceEpoch, work_, position, velocity, 1, mode_);
  return OrbitState{{position.x * kKilometresPerEarthRadius, position.y * kKilometresPerEarthRadius,
                     position.z * kKilometresPerEarthRadius},
                    {velocity.x * kKmPerSecondPerEarthRadiusPerMinute,
                     velocity.y * kKmPerSecondPerEarthRadiusPerMinute,
                     velocity.z * kKmPerSecondPerEarthRadiusPerMinute}};
}

OrbitState Propagator::stateAt(double julianDate) { return stateSince((julianDate - epochJd_) * 1440.0); }

const char* Propagator::modelName() const { return norvane::modelName(work_, mode_); }

}  // namespace norvane
