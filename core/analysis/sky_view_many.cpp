// SkyView::sampleMany in SIMD lanes, compiled once per SIMD target by
// Highway's foreach_target; the best target the processor supports is chosen
// at run time. Each lane follows sample() and the observer and look-angle
// code it calls operation for operation; only sine, cosine, arctangent and
// arccosine come from the vector maths.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "core/analysis/sky_view_many.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include <cstddef>
#include <limits>

#include "core/analysis/pass_geometry.h"
#include "core/astro/earth_model.h"
#include "core/propagation/batch_angles-inl.h"
#include "hwy/highway.h"

#ifndef NORVANE_SKY_VIEW_MANY_ONCE
#define NORVANE_SKY_VIEW_MANY_ONCE
namespace norvane {

// What the lanes need of the observer, worked out once per call exactly as
// the scalar code works it out per sample.
struct SkyLaneConstants {
  double lon = 0;
  double sinLat = 0, cosLat = 0;
  double achcp = 0;  // km, the observer's distance from the axis
  double obsZ = 0;   // km, the observer's height above the equator plane
  double footZ = 0, footToObserver = 0;
};

}  // namespace norvane
#endif

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE {

using namespace batch;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// GreenwichSiderealTime per lane.
HWY_INLINE Vd SiderealTimeLanes(Tag d, Vd jd) {
  const auto c = [&](double value) { return hn::Set(d, value); };
  const Vd x = jd + c(0.5);
  const Vd ut = x - hn::Trunc(x);
  const Vd jd0 = jd - ut;
  const Vd t = (jd0 - c(2451545.0)) / c(36525.0);
  const Vd gmst = c(24110.54841) + t * (c(8640184.812866) + t * (c(0.093104) - t * c(6.2e-6)));
  // fmod by 86400: the remainder is exact once the quotient is right, and a
  // quotient rounded one too far is put back.
  const Vd day = c(86400.0);
  const Vd zero = hn::Zero(d);
  const Vd a = gmst + c(86636.555366976) * ut;
  Vd r = a - day * hn::Trunc(a / day);
  const Md positive = a >= zero;
  r = hn::IfThenElse(hn::And(positive, r < zero), r + day, r);
  r = hn::IfThenElse(hn::And(positive, r >= day), r - day, r);
  r = hn::IfThenElse(hn::AndNot(positive, r > zero), r - day, r);
  r = hn::IfThenElse(hn::AndNot(positive, r <= hn::Neg(day)), r + day, r);
  r = hn::IfThenElse(r < zero, r + day, r);
  return c(kTwoPi) * r / day;
}

// ArcSin of numeric.h per lane.
HWY_INLINE Vd ArcSinLanes(Tag d, Vd x) {
  const Vd halfPi = hn::Set(d, kPi / 2.0);
  const Vd inside = hn::Atan(d, x / hn::Sqrt(hn::Set(d, 1.0) - x * x));
  const Vd edge = hn::IfThenElse(x > hn::Zero(d), halfPi, hn::Neg(halfPi));
  return hn::IfThenElse(hn::Abs(x) >= hn::Set(d, 1.0), edge, inside);
}

// The look-angle azimuth per lane: atan(-topE / topS) turned into [0, 2pi),
// and 0 where that is not a number (at the zenith).
HWY_INLINE Vd AzimuthLanes(Tag d, Vd topS, Vd topE) {
  const Vd zero = hn::Zero(d);
  const Vd halfPi = hn::Set(d, kPi / 2.0);
  const Vd ratio = hn::Neg(topE) / topS;
  Vd azimuth = hn::Atan(d, ratio);
  // A horizontal line north or south gives an infinite ratio.
  azimuth = hn::IfThenElse(ratio == hn::Set(d, kInfinity), halfPi, azimuth);
  azimuth = hn::IfThenElse(ratio == hn::Set(d, -kInfinity), hn::Neg(halfPi), azimuth);
  azimuth = hn::IfThenElse(topS > zero, azimuth + hn::Set(d, kPi), azimuth);
  azimuth = hn::IfThenElse(azimuth < zero, azimuth + hn::Set(d, kTwoPi), azimuth);
  return hn::IfThenElse(hn::IsFinite(azimuth), azimuth, zero);
}

HWY_INLINE Vd LengthOf(Vd x, Vd y, Vd z) { return hn::Sqrt(x * x + y * y + z * z); }

}  // namespace

void SampleLanes(const SkyLaneConstants& k, const double* jds, const BatchStates& states, std::size_t count,
                 SkySample* out) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  const auto c = [&](double value) { return hn::Set(d, value); };
  const Vd zero = hn::Zero(d);
  const Vd sinLat = c(k.sinLat);
  const Vd cosLat = c(k.cosLat);
  const Vd upW = c(k.footToObserver);
  const Vd footZ = c(k.footZ);
  const Vd omega = c(EarthModel::kRotationRate);
  const double* column[6];
  for (std::size_t f = 0; f < 6; ++f) column[f] = states.column(static_cast<StateField>(f));
  constexpr std::size_t kMaxLanes = HWY_MAX_BYTES / sizeof(double);
  enum Result { Elevation, Azimuth, Separation, Rate, FootToSat, SatW, ObsX, ObsY, ObsW, Usable, Valid, Results };
  HWY_ALIGN double laneJds[kMaxLanes];
  HWY_ALIGN double result[Results][kMaxLanes];

  for (std::size_t row = 0; row < count; row += lanes) {
    const std::size_t n = count - row < lanes ? count - row : lanes;
    for (std::size_t i = 0; i < lanes; ++i) laneJds[i] = jds[row + (i < n ? i : n - 1)];
    const Vd jd = hn::Load(d, laneJds);
    const Vd sx = hn::LoadU(d, column[0] + row);
    const Vd sy = hn::LoadU(d, column[1] + row);
    const Vd sz = hn::LoadU(d, column[2] + row);
    const Vd vx = hn::LoadU(d, column[3] + row);
    const Vd vy = hn::LoadU(d, column[4] + row);
    const Vd vz = hn::LoadU(d, column[5] + row);
    const Vd satW = LengthOf(sx, sy, sz);
    const Vd velW = LengthOf(vx, vy, vz);
    const Md usable =
        hn::And(hn::And(hn::IsFinite(satW), hn::IsFinite(velW)), satW >= c(EarthModel::kEquatorialRadius));

    // The observer, turned with the Earth to the lane's time.
    const Vd theta = FMod2pLanes(d, SiderealTimeLanes(d, jd) + c(k.lon));
    const SinCosLanes turn = SinCos(d, theta);
    const Vd ox = c(k.achcp) * turn.cos;
    const Vd oy = c(k.achcp) * turn.sin;
    const Vd oz = c(k.obsZ);
    const Vd obsW = LengthOf(ox, oy, oz);

    // Elevation, and the azimuth where the satellite is not below the horizon.
    const Vd rx = sx - ox;
    const Vd ry = sy - oy;
    const Vd rz = sz - oz;
    const Vd range = LengthOf(rx, ry, rz);
    const Vd topZ = cosLat * turn.cos * rx + cosLat * turn.sin * ry + sinLat * rz;
    const Vd elevation = ArcSinLanes(d, topZ / range);
    const Vd topS = sinLat * turn.cos * rx + sinLat * turn.sin * ry - cosLat * rz;
    const Vd topE = hn::Neg(turn.sin) * rx + turn.cos * ry;
    const Vd azimuth = hn::IfThenElse(elevation < zero, zero, AzimuthLanes(d, topS, topE));

    // Separation from the vertical's foot and its rate.
    const Vd fz = sz - footZ;
    const Vd fw = LengthOf(sx, sy, fz);
    const Vd uz = oz - footZ;
    const Vd cosine = (sx * ox + sy * oy + fz * uz) / (fw * upW);
    const Vd separation = hn::Acos(d, hn::Min(c(1.0), hn::Max(c(-1.0), cosine)));
    const Vd along = (vx * sx + vy * sy + vz * fz) / fw;
    const Vd ax = (vx - along * sx / fw) / fw;
    const Vd ay = (vy - along * sy / fw) / fw;
    const Vd az = (vz - along * fz / fw) / fw;
    const Vd turnX = hn::Neg(omega) * oy / upW;
    const Vd turnY = omega * ox / upW;
    const Vd cosineRate = ((turnX * sx + turnY * sy + zero * fz) / fw + (ax * ox + ay * oy + az * uz) / upW) *
                          c(86400.0);
    const Vd sine = SinOf(d, separation);
    const Vd rate = hn::IfThenElse(sine > c(1e-9), hn::Neg(cosineRate) / sine, zero);

    const Md valid = hn::And(usable, hn::IsFinite(elevation));
    hn::Store(elevation, d, result[Elevation]);
    hn::Store(azimuth, d, result[Azimuth]);
    hn::Store(separation, d, result[Separation]);
    hn::Store(rate, d, result[Rate]);
    hn::Store(fw, d, result[FootToSat]);
    hn::Store(satW, d, result[SatW]);
    hn::Store(ox, d, result[ObsX]);
    hn::Store(oy, d, result[ObsY]);
    hn::Store(obsW, d, result[ObsW]);
    hn::Store(hn::IfThenElseZero(usable, c(1.0)), d, result[Usable]);
    hn::Store(hn::IfThenElseZero(valid, c(1.0)), d, result[Valid]);

    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t r = row + i;
      SkySample s;
      s.jd = laneJds[i];
      s.satPos = {column[0][r], column[1][r], column[2][r], result[SatW][i]};
      if (result[Usable][i] != 0.0) {
        s.elevation = result[Elevation][i];
        s.azimuth = result[Azimuth][i];
        s.separation = result[Separation][i];
        s.separationRate = result[Rate][i];
        s.footToObserver = k.footToObserver;
        s.footToSatellite = result[FootToSat][i];
        s.obsPos = {result[ObsX][i], result[ObsY][i], k.obsZ, result[ObsW][i]};
        s.valid = result[Valid][i] != 0.0;
      }
      out[r] = s;
    }
  }
}

}  // namespace norvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include <cmath>

namespace norvane {

HWY_EXPORT(SampleLanes);

void SkyView::sampleMany(std::span<const double> jds, const BatchStates& states, std::span<SkySample> out) {
  if (jds.empty()) return;
  // The observer's terms as ObserverPosVel and the look angles compute them.
  SkyLaneConstants k;
  k.lon = observer_.lon;
  k.sinLat = std::sin(observer_.lat);
  k.cosLat = std::cos(observer_.lat);
  const double c = 1.0 / std::sqrt(1.0 - EarthModel::kESquared * k.sinLat * k.sinLat);
  const double s = EarthModel::kOneMinusF * EarthModel::kOneMinusF * c;
  k.achcp = (EarthModel::kEquatorialRadius * c + observer_.alt) * std::cos(observer_.lat);
  k.obsZ = (EarthModel::kEquatorialRadius * s + observer_.alt) * k.sinLat;
  k.footZ = footZ_;
  k.footToObserver = footToObserver_;
  HWY_DYNAMIC_DISPATCH(SampleLanes)(k, jds.data(), states, jds.size(), out.data());
}

}  // namespace norvane
#endif  // HWY_ONCE
