#include "core/analysis/pass_geometry.h"

#include <cmath>

#include "core/astro/earth_model.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {
constexpr double kEarthRadiusKm = 6378.137;

StateVector withLength(const std::array<double, 3>& v) {
  StateVector out{v[0], v[1], v[2], 0};
  VecMagnitude(out);
  return out;
}
}  // namespace

OrbitState PropagatorSource::stateAt(double julianDate) {
  if (propagator_.isDeepSpace()) propagator_ = fresh_;
  return propagator_.stateAt(julianDate);
}

SkyView::SkyView(const Geodetic& observer) : observer_(observer) {
  // The normal through a point of the ellipsoid meets the axis e^2 N sin(lat)
  // below the centre (N the radius of curvature in the prime vertical), at a
  // distance N + altitude from the observer.
  const double s = std::sin(observer.lat);
  const double n = EarthModel::kEquatorialRadius / std::sqrt(1.0 - EarthModel::kESquared * s * s);
  footZ_ = -EarthModel::kESquared * n * s;
  footToObserver_ = n + observer.alt;
}

SkySample SkyView::sample(double jd, const OrbitState& state) {
  SkySample out;
  out.jd = jd;
  out.satPos = withLength(state.positionKm);
  const StateVector vel = withLength(state.velocityKmS);
  // A decayed orbit leaves the models with nonsense or NaN; below the
  // equatorial radius nothing the planner reports would mean anything.
  if (!std::isfinite(out.satPos.w) || !std::isfinite(vel.w) || out.satPos.w < kEarthRadiusKm) return out;
  // Below the horizon the azimuth is left out: the search seldom needs it.
  LookAngles look;
  LookAnglesOf(jd, out.satPos, vel, observer_, cache_, look, false, false);
  out.obsPos = cache_.observerPos;
  out.elevation = look.elevation;
  out.azimuth = look.azimuth;
  StateVector fromFoot{out.satPos.x, out.satPos.y, out.satPos.z - footZ_, 0};
  VecMagnitude(fromFoot);
  const StateVector up{out.obsPos.x, out.obsPos.y, out.obsPos.z - footZ_, footToObserver_};
  const double cosine = Dot(fromFoot, up) / (fromFoot.w * up.w);
  out.separation = std::acos(std::fmin(1.0, std::fmax(-1.0, cosine)));
  // d(cos separation)/dt: the vertical turns with the Earth, the line to the
  // satellite with the satellite's velocity across it.
  const double along = Dot(vel, fromFoot) / fromFoot.w;
  const StateVector across{(vel.x - along * fromFoot.x / fromFoot.w) / fromFoot.w,
                           (vel.y - along * fromFoot.y / fromFoot.w) / fromFoot.w,
                           (vel.z - along * fromFoot.z / fromFoot.w) / fromFoot.w, 0};
  const StateVector upTurn{-EarthModel::kRotationRate * up.y / up.w, EarthModel::kRotationRate * up.x / up.w, 0, 0};
  const double cosineRate = (Dot(upTurn, fromFoot) / fromFoot.w + Dot(across, up) / up.w) * 86400.0;
  const double sine = std::sin(out.separation);
  out.separationRate = sine > 1e-9 ? -cosineRate / sine : 0.0;
  out.footToObserver = footToObserver_;
  out.footToSatellite = fromFoot.w;
  // At the zenith the azimuth is undefined; any value will do there.
  if (!std::isfinite(out.azimuth)) out.azimuth = 0.0;
  out.valid = std::isfinite(out.elevation);
  return out;
}

double SkyView::azimuthOf(const SkySample& s) {
  if (s.elevation >= 0.0) return s.azimuth;
  LookAngles look;
  const StateVector still;
  LookAnglesOf(s.jd, s.satPos, still, observer_, cache_, look, true, false);
  return std::isfinite(look.azimuth) ? look.azimuth : 0.0;
}

double SkyView::sunElevation(double jd, StateVector& sun) {
  SunPosition(jd, sun);
  LookAngles look;
  const StateVector still;
  LookAnglesOf(jd, sun, still, observer_, cache_, look, true, false);
  return look.elevation;
}

}  // namespace norvane
