#include "core/astro/observer.h"

#include <cmath>

#include "core/astro/earth_model.h"
#include "core/astro/numeric.h"
#include "core/astro/sidereal_time.h"
#include "core/astro/vector_math.h"

namespace norvane {

void ObserverPosVel(double jd, Geodetic& observer, StateVector& pos, StateVector& vel) {
  observer.theta = FMod2p(GreenwichSiderealTime(jd) + observer.lon);
  const double sinLat = std::sin(observer.lat);
  const double c = 1.0 / std::sqrt(1.0 - EarthModel::kESquared * sinLat * sinLat);
  const double s = Sqr(EarthModel::kOneMinusF) * c;
  const double achcp = (EarthModel::kEquatorialRadius * c + observer.alt) * std::cos(observer.lat);
  pos.x = achcp * std::cos(observer.theta);
  pos.y = achcp * std::sin(observer.theta);
  pos.z = (EarthModel::kEquatorialRadius * s + observer.alt) * sinLat;
  VecMagnitude(pos);
  vel.x = -EarthModel::kRotationRate * pos.y;
  vel.y = EarthModel::kRotationRate * pos.x;
  vel.z = 0.0;
  VecMagnitude(vel);
}

void ObserverPosition(double jd, const Geodetic& observer, StateVector& pos) {
  const double angle = observer.lon + GreenwichSiderealTime(jd);
  const double theta = AcTan(std::sin(angle), std::cos(angle));
  const double psi = std::atan(Sqr(EarthModel::kOneMinusF) * std::tan(observer.lat));
  const double cosPsi = std::cos(psi);
  const double r = observer.alt + EarthModel::kPolarRadius /
                                      std::sqrt(1.0 - EarthModel::kESquared * cosPsi * cosPsi);
  pos.x = r * cosPsi * std::cos(theta);
  pos.y = r * cosPsi * std::sin(theta);
  pos.z = r * std::sin(psi);
}

}  // namespace norvane
