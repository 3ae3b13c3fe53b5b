#include "core/astro/sub_satellite_point.h"

#include <cmath>

#include "core/astro/earth_model.h"
#include "core/astro/numeric.h"
#include "core/astro/sidereal_time.h"

namespace norvane {

int SubSatellitePoint(double jd, const StateVector& pos, Geodetic& point) {
  point.theta = AcTan(pos.y, pos.x);
  point.lon = FMod2p(point.theta - GreenwichSiderealTime(jd));
  const double r = std::sqrt(pos.x * pos.x + pos.y * pos.y);
  point.lat = AcTan(pos.z, r);
  double c = 0.0;
  int passes = 0;
  double previous = 0.0;
  do {
    ++passes;
    previous = point.lat;
    const double sinPhi = std::sin(previous);
    c = 1.0 / std::sqrt(1.0 - EarthModel::kESquared * sinPhi * sinPhi);
    point.lat = AcTan(pos.z + EarthModel::kRadiusTimesESquared * c * sinPhi, r);
  } while (passes < 10 && std::fabs(point.lat - previous) >= 1e-6);
  point.alt = r / std::cos(point.lat) - EarthModel::kEquatorialRadius * c;
  // AcTan answers in [0, 2pi]: southern latitudes come back near 2pi.
  if (point.lat > kPi / 2.0) point.lat -= kTwoPi;
  return passes;
}

}  // namespace norvane
