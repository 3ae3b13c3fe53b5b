#pragma once
#include "core/elements/satellite.h"

namespace norvane {

// Limits of an orbit that let a search skip time safely: how far from and how
// close to any point of the Earth's axis within 43 km of the centre the
// satellite gets, and how fast its direction from such a point can turn in
// the Earth-fixed frame.
struct OrbitBounds {
  double minRadiusKm = 0;
  double maxRadiusKm = 0;
  double maxTurnRate = 0;   // rad/day, with a margin for perturbations
  double maxRadialSpeed = 0;  // km/day, of the distance from such a point
  double maxTurnAcceleration = 0;  // rad/day^2, of that direction, across its path and along it
  double periodDays = 0;    // mean-motion period
  bool usable = false;      // false for a mean motion of 0 or an element set without an orbit
};

// Bounds from the mean elements, widened for the models' periodic terms.
OrbitBounds orbitBoundsOf(const ElementSet& elements);

// Largest angle at the Earth's centre between an observer at observerRadius
// (km) and a body at radius (km) that still leaves the body at elevation
// (rad) or higher, for a spherical Earth; rad.
double horizonSeparation(double observerRadius, double radius, double elevation);

// How fast horizonSeparation grows with the radius at its steepest for radii
// of at least minRadius; rad/km.
double horizonSeparationSlope(double observerRadius, double minRadius, double elevation);

}  // namespace norvane
