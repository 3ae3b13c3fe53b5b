#include "core/astro/sun.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/astro/sidereal_time.h"

namespace norvane {
namespace {

constexpr double kArcsecond = 4.84813681109536e-6;  // rad
constexpr double kAstronomicalUnit = 149597870.691;  // km

}  // namespace

double Obliquity(double jd) {
  const double u = (jd - 2451545.0) / 36525.0 / 10.0;
  const double arcseconds =
      84381.406173 +
      u * (-468.3396 +
           u * (-0.0175 +
                u * (1.9989 +
                     u * (-0.005138 +
                          u * (-0.0024967 +
                               u * (-3.905e-5 + u * (7.12e-7 + u * (2.787e-7 + u * (5.79e-9 + u * 2.45e-10)))))))));
  return arcseconds * kArcsecond;
}

void SunPosition(double jd, StateVector& sun) {
  const double t = (jd - 2451545.0 + DeltaET(jd) / 86400.0) / 36525.0;
  const double meanLongitude = FMod2p(4.895062993880051 + (628.3319667861393 + 5.291838292046808e-6 * t) * t);
  const double meanAnomaly = FMod2p(
      6.24005996669206 + (628.3019553260526 - (2.72096830385916e-6 + 8.377580409572783e-9 * t) * t) * t);
  const double e = 0.016708617 - (4.2037e-5 + 1.236e-7 * t) * t;
  const double center =
      (0.03341607385868344 - (8.407251006856687e-5 + 2.4434609527920616e-7 * t) * t) * std::sin(meanAnomaly) +
      (0.0003489436773512264 - 1.7627825445142732e-6 * t) * std::sin(2.0 * meanAnomaly) +
      5.061454830783557e-6 * std::sin(3.0 * meanAnomaly);
  const double trueAnomaly = FMod2p(meanAnomaly + center);
  const double distanceAu = 1.000001018 * (1.0 - e * e) / (1.0 + e * std::cos(trueAnomaly));
  const double node = 2.18235969669371 - 33.757041381353055 * t;
  const double longitude =
      FMod2p(meanLongitude + center - (9.930923443847736e-5 - 8.342673824532897e-5 * std::sin(node)));
  const double epsilon = Obliquity(jd);
  const double r = kAstronomicalUnit * distanceAu;
  sun.x = r * std::cos(longitude);
  sun.y = r * std::sin(longitude) * std::cos(epsilon);
  sun.z = r * std::sin(longitude) * std::sin(epsilon);
  sun.w = r;
}

}  // namespace norvane
