#include "core/analysis/orbit_bounds.h"

#include <algorithm>
#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {
namespace {
constexpr double kEarthGm = 398600.4418;          // km^3/s^2
constexpr double kEarthRotation = 7.292115e-5;    // rad/s
constexpr double kSecondsPerDay = 86400.0;
constexpr double kEarthRadiusKm = 6378.137;
constexpr double kJ2 = 1.0826e-3;
constexpr double kFoot = 42.8;  // km, farthest an observer's vertical meets the axis from the centre
}  // namespace

OrbitBounds orbitBoundsOf(const ElementSet& elements) {
  OrbitBounds b;
  const double n = elements.xno * kTwoPi / kSecondsPerDay;  // rad/s
  const double e = elements.eo;
  if (!(n > 0.0) || !std::isfinite(n) || !(e >= 0.0) || !(e < 1.0)) return b;
  const double a = std::cbrt(kEarthGm / (n * n));
  // The models' periodic terms move the osculating radius by a small multiple
  // of J2 (R/a)^2, relative; the mean motion differs from the Keplerian one
  // by as much.
  const double ratio = kEarthRadiusKm / a;
  const double spread = 3.0 * kJ2 * ratio * ratio + 1e-4;
  const double perigee = std::max(a * (1.0 - e) * (1.0 - spread) - 2.0, 1.0);
  const double apogee = a * (1.0 + e) * (1.0 + spread) + 2.0;
  // Seen from a point of the axis up to kFoot from the centre (the observer's
  // vertical foot) the radii change by as much.
  b.minRadiusKm = perigee - kFoot;
  b.maxRadiusKm = apogee + kFoot;
  b.periodDays = kTwoPi / n / kSecondsPerDay;

  // The direction to the satellite turns in inertial space at h/r^2 about the
  // orbit normal; in the Earth-fixed frame the Earth's rotation about the axis
  // is taken off. With w = h/r^2 and inclination i, the turn rate squared is
  // (w - wE cos i)^2 + (wE sin i cos u)^2, u the argument of latitude; the
  // first term is largest at perigee or apogee. The Sun and Moon tilt a high
  // orbit by a few hundredths of a degree in ten days.
  const double h = std::sqrt(kEarthGm * a * (1.0 - e * e));
  const double wMax = h / (perigee * perigee);
  const double wMin = h / (apogee * apogee);
  const double inclination = elements.xincl * kPi / 180.0;
  const double along = kEarthRotation * std::cos(inclination);
  const double across = kEarthRotation * (std::fabs(std::sin(inclination)) + 0.0006);
  const double worst = std::max(std::fabs(wMax - along), std::fabs(wMin - along));
  const double centreRate = std::sqrt(worst * worst + across * across);
  // From the foot instead of the centre: the Earth-fixed velocity (turning
  // plus the Keplerian radial speed, at most GM e / h) seen across kFoot more,
  // over a radius kFoot less.
  const double speed = apogee * centreRate + kEarthGm * (e + spread) / h;
  const double footRate =
      (centreRate * perigee * perigee + kFoot * speed) / ((perigee - kFoot) * (perigee - kFoot));
  // Drag raises the mean motion; the first derivative is rev/day^2 / 2.
  const double dragGrowth = 1.0 + std::min(1.0, 4.0 * std::fabs(elements.xndt2o) * 10.0 / elements.xno);
  b.maxTurnRate = (1.1 * footRate + 1e-4 * wMax) * dragGrowth * kSecondsPerDay;
  // Radial speed: the Keplerian GM e / h, the turn seen from the foot, and
  // the sinking of a = (GM / n^2)^(1/3) as drag raises n.
  const double decay = 2.0 / 3.0 * a * 2.0 * std::fabs(elements.xndt2o) / elements.xno;  // km/day
  b.maxRadialSpeed =
      1.1 * (kEarthGm * (e + spread) / h + speed * kFoot / (perigee - kFoot)) * kSecondsPerDay + 2.0 * decay + 1.0;
  // A unit vector towards a point at distance rho moving with velocity v and
  // acceleration a turns with an acceleration of at most |a| / rho +
  // 2 |v radial| |v across| / rho^2. In the Earth-fixed frame a is gravity
  // (seen from the foot, only its share across the line of sight counts),
  // the Coriolis and centrifugal terms, J2, and the Sun and Moon.
  const double rho = perigee - kFoot;
  const double gravity = kEarthGm / (perigee * perigee);
  const double across2 = gravity * kFoot / rho + 2.0 * kEarthRotation * speed * dragGrowth +
                         kEarthRotation * kEarthRotation * apogee +
                         3.0 * kJ2 * gravity * kEarthRadiusKm * kEarthRadiusKm / (perigee * perigee) + 2e-8;
  const double turn = b.maxTurnRate / kSecondsPerDay;
  const double radial = b.maxRadialSpeed / kSecondsPerDay;
  b.maxTurnAcceleration = 1.5 * (across2 / rho + 2.0 * radial * turn / rho) * kSecondsPerDay * kSecondsPerDay;
  b.usable = std::isfinite(b.maxTurnRate) && b.maxTurnRate > 0.0 && std::isfinite(b.maxTurnAcceleration);
  return b;
}

double horizonSeparation(double observerRadius, double radius, double elevation) {
  const double c = std::clamp(observerRadius / radius * std::cos(elevation), -1.0, 1.0);
  return std::acos(c) - elevation;
}

double horizonSeparationSlope(double observerRadius, double minRadius, double elevation) {
  const double c = observerRadius * std::cos(elevation) / minRadius;
  return c / minRadius / std::sqrt(std::max(1e-12, 1.0 - c * c));
}

}  // namespace norvane
