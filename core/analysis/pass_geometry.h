#pragma once
#include <span>

#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"
#include "core/propagation/batch_layout.h"
#include "core/propagation/propagator.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// Where the pass planner gets its positions: one satellite's inertial state
// at a time. This is the only place the planner touches a model, so a batch
// propagator that has computed states for many satellites can stand in.
class StateSource {
 public:
  virtual ~StateSource() = default;
  virtual OrbitState stateAt(double julianDate) = 0;  // km, km/s
};

// A StateSource over one satellite's own Propagator, as a pure function of
// time. The deep-space model remembers its last call: the resonance
// integrator walks on from where it stopped (and a step back does not undo a
// step forward), and the lunar-solar terms are reused within 30 minutes. A
// search that goes back and forth would see the elevation jitter by metres'
// worth; so each deep-space state comes from the freshly initialised model.
class PropagatorSource final : public StateSource {
 public:
  explicit PropagatorSource(const Satellite& satellite, ModelFamily family = ModelFamily::Sgp4Sdp4)
      : fresh_(satellite, family), propagator_(fresh_) {}
  OrbitState stateAt(double julianDate) override;

 private:
  Propagator fresh_;
  Propagator propagator_;
};

// The satellite as the observer sees it at one moment.
struct SkySample {
  double jd = 0;
  double elevation = 0;   // rad above the observer's geodetic horizon, no refraction
  double azimuth = 0;     // rad from north through east, [0, 2pi); 0 below the horizon (see SkyView::azimuthOf)
  // Angle between observer and satellite seen from the point where the
  // observer's vertical meets the Earth's axis (the vertical's foot): there
  // the elevation depends on this angle and the distances alone, exactly as
  // for a spherical Earth seen from its centre.
  double separation = 0;      // rad
  double separationRate = 0;  // rad/day
  double footToObserver = 0;  // km, the observer's distance from the vertical's foot
  double footToSatellite = 0; // km, the satellite's distance from it
  StateVector satPos;     // km, geocentric, with its length
  StateVector obsPos;     // km, geocentric, with its length
  bool valid = false;     // false when the state is unusable (not finite, or inside the Earth)
};

// Largest distance of an observer's vertical foot from the Earth's centre, km.
inline constexpr double kMaxVerticalFootOffset = 42.8;

// One observer's view of satellites and the Sun: look angles and the
// separation angle from inertial states. Owns its look-angle cache.
class SkyView {
 public:
  explicit SkyView(const Geodetic& observer);

  SkySample sample(double jd, const OrbitState& state);
  // sample() for many states at once: out[k] from jds[k] and row k of
  // states, each equal to what sample() gives to within 1e-9 rad and 1e-6 km.
  void sampleMany(std::span<const double> jds, const BatchStates& states, std::span<SkySample> out);
  // The sample's azimuth, worked out from its position when it was below the
  // horizon (rad).
  double azimuthOf(const SkySample& s);
  // Sun elevation (rad, no refraction) and the Sun's geocentric vector (km).
  double sunElevation(double jd, StateVector& sun);

 private:
  Geodetic observer_;
  LookAngleCache cache_;
  double footZ_ = 0;  // km, the vertical's foot on the Earth's axis
  double footToObserver_ = 0;  // km
};

}  // namespace norvane
