#include "core/astro/planets.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/astro/planet_elements.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {

constexpr double kAstronomicalUnit = 149597870.691;    // km
constexpr double kGaussianDailyMotion = 0.017202098949975136;  // rad/day at 1 AU

double eccentricAnomaly(double meanAnomaly, double e) {
  double anomaly = meanAnomaly;
  for (int i = 0; i < 100; ++i) {  // Newton's method converges in a few steps; the cap only bounds bad input
    const double delta = anomaly - e * std::sin(anomaly) - meanAnomaly;
    anomaly -= delta / (1.0 - e * std::cos(anomaly));
    if (!(std::fabs(delta) > 1e-6)) break;
  }
  return anomaly;
}

}  // namespace

int PlanetPosition(double jd, int bodyIndex, StateVector& vec, PlanetCache& cache) {
  const PlanetElements p = PlanetRecord(bodyIndex);
  const double n = p.dailyMotion == 0.0 ? kGaussianDailyMotion / (p.semiMajorAxis * std::sqrt(p.semiMajorAxis))
                                        : p.dailyMotion;
  const double m = FMod2p(p.meanAnomaly + n * (jd - p.epoch));
  const double e = p.eccentricity;
  const double anomaly = eccentricAnomaly(m, e);
  const double nu = FMod2p(2.0 * std::atan(std::sqrt((1.0 + e) / (1.0 - e)) * std::tan(anomaly / 2.0)));
  const double u = nu + p.perihelion;
  const double r = kAstronomicalUnit * p.semiMajorAxis * (1.0 - e * e) / (1.0 + e * std::cos(nu));

  double l = 0.0;
  double z = 0.0;
  double rho = r;
  if (bodyIndex != kEarthIndex) {
    l = AcTan(std::sin(u) * std::cos(p.inclination), std::cos(u)) + p.node;
    const double b = std::asin(std::sin(u) * std::sin(p.inclination));
    z = r * std::sin(b);
    rho = r * std::cos(b);
  } else {
    l = AcTan(std::sin(u), std::cos(u));
    // The obliquity of the table's epoch, not of jd.
    const double epsilon = Obliquity(p.obliquityEpoch);
    cache.cosEpsilon = std::cos(epsilon);
    cache.sinEpsilon = std::sin(epsilon);
  }
  const double x = rho * std::cos(l);
  const double y = rho * std::sin(l);
  vec.x = x;
  vec.y = cache.cosEpsilon * y - cache.sinEpsilon * z;
  vec.z = cache.sinEpsilon * y + cache.cosEpsilon * z;
  vec.w = r;
  return 1;
}

void PlanetLookAngles(double jd, int bodyIndex, Geodetic& observer, PlanetCache& planetCache,
                      LookAngleCache& lookCache, bool applyRefraction, LookAngles& out) {
  StateVector earth;
  StateVector body;
  PlanetPosition(jd, kEarthIndex, earth, planetCache);
  PlanetPosition(jd, bodyIndex, body, planetCache);
  StateVector direction;
  Vec_Sub(body, earth, direction);
  const StateVector still;
  LookAnglesOf(jd, direction, still, observer, lookCache, out, true, applyRefraction);
}

}  // namespace norvane
