#pragma once
#include <cstdint>

#include "core/analysis/magnitude.h"
#include "core/analysis/propagation_args.h"
#include "core/analysis/visibility_state.h"
#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"

namespace norvane {

// Sun elevation (rad) below which the sky is dark enough to see a satellite.
inline constexpr double kDarkSkySunElevation = -0.13;

// Outputs of EvaluateVisibility. Fields an evaluation does not reach keep
// their earlier values: the flare fields in particular are written only when
// flares are evaluated, which the pass search relies on.
struct VisibilityResult {
  VisibilityState state = VisibilityState::Invisible;
  double magnitude = -20.0;     // -20.0 unless state 3 (flare mode), 4 or 5 sets it
  LookAngles satAngles;         // not kept below the horizon, no refraction
  LookAngles sunAngles;         // kept below the horizon; written above the horizon only
  StateVector satPos;           // km
  StateVector satVel;           // km/s
  StateVector sun;              // km, written above the horizon only
  int eclipsed = 0;             // written above the horizon only
  double depth = 0;             // rad, written above the horizon only
  MagnitudeResult detail;       // the magnitude estimate of state 4
  double flareAngle = 100.0;    // rad, 100.0 for no reflection
  std::int16_t antenna = 0;     // 1-3, see AntennaName
  double flarePsi = 0;          // rad, observer-satellite-Sun angle at the reflecting panel
  std::uint32_t modelMilliseconds = 0;
};

// The visibility state of the satellite at jd (UTC days) for the observer;
// flareMode replaces the ordinary magnitude by the Iridium flare estimate.
// The satellite is propagated with args as given, later calls within the
// evaluation as initialised.
VisibilityState EvaluateVisibility(double jd, const PropagationArgs& args, Geodetic& observer,
                                   LookAngleCache& cache, bool flareMode, VisibilityResult& out);

}  // namespace norvane
