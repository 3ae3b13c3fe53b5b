#include "core/astro/look_angles.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {

void refreshTrigonometry(double jd, const Geodetic& observer, LookAngleCache& cache) {
  if (jd == cache.time) return;
  cache.sinLat = std::sin(observer.lat);
  cache.cosLat = std::cos(observer.lat);
  cache.sinTheta = std::sin(observer.theta);
  cache.cosTheta = std::cos(observer.theta);
  cache.time = jd;
}

double azimuthOf(const StateVector& rho, const LookAngleCache& c) {
  const double topS = c.sinLat * c.cosTheta * rho.x + c.sinLat * c.sinTheta * rho.y - c.cosLat * rho.z;
  const double topE = -c.sinTheta * rho.x + c.cosTheta * rho.y;
  // At the zenith both are 0 and the azimuth is whatever atan makes of it.
  double azimuth = std::atan(-topE / topS);
  if (topS > 0.0) azimuth += kPi;
  if (azimuth < 0.0) azimuth += kTwoPi;
  return azimuth;
}

}  // namespace

double RefractionCorrection(double elevation) {
  return (0.0178023584 / std::tan(elevation + 0.179768913 / (elevation + 0.0891863248))) / 60.0;
}

int LookAnglesOf(double jd, const StateVector& pos, const StateVector& vel, Geodetic& observer,
                 LookAngleCache& cache, LookAngles& out, bool keepBelowHorizon, bool applyRefraction) {
  ObserverPosVel(jd, observer, cache.observerPos, cache.observerVel);
  refreshTrigonometry(jd, observer, cache);
  const LookAngleCache& c = cache;

  StateVector rho;
  Vec_Sub(pos, c.observerPos, rho);
  out.range = rho.w;
  const double topZ = c.cosLat * c.cosTheta * rho.x + c.cosLat * c.sinTheta * rho.y + c.sinLat * rho.z;
  out.elevation = ArcSin(topZ / out.range);
  if (!keepBelowHorizon && out.elevation < 0.0) {
    out.azimuth = 0.0;
    out.rangeRate = 0.0;
    return 0;
  }
  out.azimuth = azimuthOf(rho, c);
  StateVector relativeVel;
  Vec_Sub(vel, c.observerVel, relativeVel);
  out.rangeRate = Dot(rho, relativeVel) / out.range;
  if (applyRefraction) out.elevation += RefractionCorrection(out.elevation);
  return 1;
}

}  // namespace norvane
