#include "core/analysis/eclipse.h"

#include "core/astro/numeric.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {
constexpr double kEarthRadius = 6378.137;  // km
constexpr double kSunRadius = 696000.0;    // km
}  // namespace

int SatEclipsed(const StateVector& satPos, const StateVector& sun, double& depth) {
  const double earthRadius = ArcSin(kEarthRadius / satPos.w);
  StateVector toSun;
  Vec_Sub(sun, satPos, toSun);
  const double sunRadius = ArcSin(kSunRadius / toSun.w);
  StateVector toEarth;
  Scalar_Multiply(-1.0, satPos, toEarth);
  // The geocentric Sun vector, not the one from the satellite, is measured here.
  const double separation = Angle(sun, toEarth);
  depth = earthRadius - sunRadius - separation;
  return earthRadius >= sunRadius && depth >= 0.0 ? 1 : 0;
}

}  // namespace norvane
