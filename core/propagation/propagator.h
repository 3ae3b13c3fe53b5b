#pragma once
#include <array>

#include "core/elements/satellite.h"
#include "core/propagation/model_state.h"
#include "core/propagation/working_set.h"

namespace norvane {

// Where a satellite is and how it moves, in the models' inertial frame.
struct OrbitState {
  std::array<double, 3> positionKm{};   // km
  std::array<double, 3> velocityKmS{};  // km/s
};

// Which pair of models a Propagator uses; the near-Earth or deep-space member
// follows from the orbit's period (225 min and more is deep space).
enum class ModelFamily { Sgp4Sdp4, Sgp8Sdp8 };

// One satellite's models, initialised once at construction and owned by the
// object, so any number of propagators can run side by side. This is the
// entry point for code that needs positions and not the tracker's shared
// working set.
class Propagator {
 public:
  explicit Propagator(const Satellite& satellite, ModelFamily family = ModelFamily::Sgp4Sdp4);

  // State at jd (UTC Julian days).
  OrbitState stateAt(double julianDate);
  // State at tsince minutes from the element epoch.
  OrbitState stateSince(double minutesSinceEpoch);

  double epochJulianDate() const { return epochJd_; }
  double periodMinutes() const { return work_.period; }
  bool isDeepSpace() const { return work_.isDeepSpace != 0; }
  // "SGP4", "SDP4", "SGP8" or "SDP8".
  const char* modelName() const;

 private:
  WorkingSet work_;
  ModelState models_;
  int mode_ = 0;
  double epochJd_ = 0;
};

}  // namespace norvane
