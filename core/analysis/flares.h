#pragma once
#include <cstdint>

#include "core/propagation/state_vector.h"

namespace norvane {

// The three main mission antennas: tilt and azimuth (rad) in the frame of
// the direction of flight, the radius vector and their cross product.
struct Antenna {
  std::int16_t code;  // 1 Front, 2 Left, 3 Right
  const char* name;   // "Front MMA", "Left MMA", "Right MMA"
  double tilt;
  double azimuth;
};
inline constexpr Antenna kFrontAntenna{1, "Front MMA", -0.6981317007977319, 0.0};
inline constexpr Antenna kLeftAntenna{2, "Left MMA", -0.6981317007977319, 2.0943951023931957};
inline constexpr Antenna kRightAntenna{3, "Right MMA", -0.6981317007977319, -2.0943951023931957};

// Name of antenna code 1-3; "" for any other code.
const char* AntennaName(std::int16_t code);

// A reflection closer than this (rad, 5 degrees) is a flare.
inline constexpr double kFlareThreshold = 0.08726646259971649;
// Angle and magnitude meaning "no reflection".
inline constexpr double kNoReflection = 100.0;

// Angle (rad) between the Sun and the observer's line of sight mirrored in
// the panel, or 100.0 when the observer sees the panel's back. Inertial
// vectors in km and km/s; psi (rad, the observer-satellite-Sun angle) is
// written only when the observer is in front of the panel.
double PanelReflection(const StateVector& sun, const StateVector& satPos, const StateVector& satVel,
                       const StateVector& obsPos, double tilt, double azimuth, double& psi);

// Flare magnitude from the first panel within 5 degrees (Front, then Left,
// then Right), or 100.0 when none is; flareAngle (rad) and antenna report
// the smallest angle found and its panel.
double FlareMagnitude(const StateVector& sun, const StateVector& satPos, const StateVector& satVel,
                      const StateVector& obsPos, double& psi, double& flareAngle, std::int16_t& antenna);

}  // namespace norvane
