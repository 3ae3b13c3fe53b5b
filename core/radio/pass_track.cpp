#include "core/radio/pass_track.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/astro/look_angles.h"

namespace norvane {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr double kSecond = 1.0 / 86400.0;
constexpr double kCoarseStep = 60.0 * kSecond;  // short enough for any pass of a low orbit
constexpr double kMaxPassDays = 1.0;            // a longer "pass" counts as never setting

StateVector Vector(const std::array<double, 3>& v) {
  return {v[0], v[1], v[2], std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2])};
}

bool Above(Propagator& p, const Geodetic& observer, double jd, double minElevationDeg) {
  return SkyPositionAt(p, observer, jd).elevationDeg >= minElevationDeg;
}

// The moment between a (state aboveAtA) and b where the satellite crosses the minimum elevation, to a second.
double Crossing(Propagator& p, const Geodetic& observer, double a, double b, bool aboveAtA, double minElevationDeg) {
  while (b - a > kSecond) {
    const double mid = 0.5 * (a + b);
    if (Above(p, observer, mid, minElevationDeg) == aboveAtA) {
      a = mid;
    } else {
      b = mid;
    }
  }
  return aboveAtA ? a : b;
}

}  // namespace

SkyPosition SkyPositionAt(Propagator& propagator, const Geodetic& observer, double jd) {
  const OrbitState state = propagator.stateAt(jd);
  Geodetic where = observer;
  LookAngleCache cache;
  LookAngles look;
  LookAnglesOf(jd, Vector(state.positionKm), Vector(state.velocityKmS), where, cache, look, true, false);
  return {look.azimuth * kDegrees, look.elevation * kDegrees, look.range, look.rangeRate};
}

PassTrack SampleNextPass(Propagator& propagator, const Geodetic& observer, double startJd, const PassSearch& search) {
  PassTrack track;
  const double minEl = search.minElevationDeg;
  double aos = startJd;
  if (Above(propagator, observer, startJd, minEl)) {
    // In progress: look back for its start.
    double t = startJd;
    while (t > startJd - kMaxPassDays && Above(propagator, observer, t - kCoarseStep, minEl)) t -= kCoarseStep;
    if (t <= startJd - kMaxPassDays) {
      track.neverSets = true;
      aos = startJd;
    } else {
      aos = Crossing(propagator, observer, t - kCoarseStep, t, false, minEl);
    }
  } else {
    double t = startJd;
    const double end = startJd + search.searchDays;
    while (t < end && !Above(propagator, observer, t + kCoarseStep, minEl)) t += kCoarseStep;
    if (t >= end) return track;
    aos = Crossing(propagator, observer, t, t + kCoarseStep, false, minEl);
  }
  double los = 0;
  if (track.neverSets) {
    los = startJd + search.searchDays;
  } else {
    double t = std::max(aos, startJd);
    const double limit = aos + kMaxPassDays;
    while (t < limit && Above(propagator, observer, t + kCoarseStep, minEl)) t += kCoarseStep;
    if (t >= limit) {
      track.neverSets = true;
      los = limit;
    } else {
      los = Crossing(propagator, observer, t, t + kCoarseStep, true, minEl);
    }
  }
  track.found = true;
  track.aosJd = aos;
  track.losJd = los;
  // At most a few thousand samples, also for a satellite that never sets.
  constexpr double kMaxSamples = 2000;
  const double step = std::max({search.stepSeconds * kSecond, kSecond, (los - aos) / kMaxSamples});
  const auto count = static_cast<long>(std::ceil((los - aos) / step));
  for (long i = 0; i <= count; ++i) {
    const double jd = i == count ? los : aos + static_cast<double>(i) * step;
    const SkyPosition s = SkyPositionAt(propagator, observer, jd);
    track.samples.push_back({jd, s.azimuthDeg, s.elevationDeg});
  }
  return track;
}

}  // namespace norvane
