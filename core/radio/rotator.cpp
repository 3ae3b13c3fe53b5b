#include "core/radio/rotator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace norvane {

namespace {

double Wrap360(double deg) {
  double a = std::fmod(deg, 360.0);
  if (a < 0) a += 360.0;
  return a;
}

double Wrap180(double deg) {
  double a = Wrap360(deg);
  if (a > 180.0) a -= 360.0;
  return a;
}

AzEl Flipped(AzEl look) { return {Wrap360(look.azimuthDeg + 180.0), 180.0 - look.elevationDeg}; }

// The pass's azimuths as one continuous curve (no 360 jumps) in rotator
// coordinates, shifted by whole turns into the travel when one shift fits.
struct Unwrapped {
  std::vector<double> azimuth;
  bool fits = false;
  double travel = 0;  // deg, total azimuth movement
};

Unwrapped Unwrap(std::span<const TrackSample> track, bool flip, const RotatorConfig& config) {
  Unwrapped u;
  for (const TrackSample& s : track) {
    if (s.elevationDeg < config.minElevationDeg) continue;
    AzEl look{s.azimuthDeg, s.elevationDeg};
    if (flip) look = Flipped(look);
    if (u.azimuth.empty()) {
      u.azimuth.push_back(Wrap360(look.azimuthDeg));
    } else {
      const double step = Wrap180(look.azimuthDeg - u.azimuth.back());
      u.travel += std::fabs(step);
      u.azimuth.push_back(u.azimuth.back() + step);
    }
  }
  if (u.azimuth.empty()) return u;
  const auto [lo, hi] = std::minmax_element(u.azimuth.begin(), u.azimuth.end());
  const double low = AzimuthLow(config.azimuthRange);
  const double high = AzimuthHigh(config.azimuthRange);
  constexpr double kSlack = 1e-9;
  // Smallest whole-turn shift that lifts the lowest azimuth into the travel.
  const double turns = std::ceil((low - *lo - kSlack) / 360.0);
  const double shift = turns * 360.0;
  u.fits = *hi + shift <= high + kSlack;
  if (u.fits) {
    for (double& a : u.azimuth) a += shift;
  }
  return u;
}

}  // namespace

double AzimuthLow(AzimuthRange range) { return range == AzimuthRange::Minus180To180 ? -180.0 : 0.0; }

double AzimuthHigh(AzimuthRange range) {
  switch (range) {
    case AzimuthRange::Minus180To180: return 180.0;
    case AzimuthRange::Zero450: return 450.0;
    case AzimuthRange::Zero360: break;
  }
  return 360.0;
}

RotatorPassPlan PlanRotatorPass(std::span<const TrackSample> track, const RotatorConfig& config) {
  RotatorPassPlan plan;
  const TrackSample* first = nullptr;
  const TrackSample* last = nullptr;
  for (const TrackSample& s : track) {
    if (s.elevationDeg < config.minElevationDeg) continue;
    if (first == nullptr) first = &s;
    last = &s;
  }
  if (first == nullptr) return plan;
  plan.valid = true;
  plan.aosJd = first->jd;
  plan.losJd = last->jd;

  const Unwrapped plain = Unwrap(track, false, config);
  bool flip = false;
  bool fits = plain.fits;
  if (config.elevationRange == ElevationRange::Zero180 && config.flip == FlipMode::Auto) {
    const Unwrapped flipped = Unwrap(track, true, config);
    flip = (flipped.fits && !plain.fits) || (flipped.fits == plain.fits && flipped.travel + 1.0 < plain.travel);
    if (flip) fits = flipped.fits;
  }
  plan.flip = flip;
  plan.fits = fits;
  const AzEl aos{first->azimuthDeg, std::max(first->elevationDeg, 0.0)};
  const Unwrapped chosen = flip ? Unwrap(track, true, config) : plain;
  const double nearAz = chosen.fits ? chosen.azimuth.front() : (flip ? Flipped(aos).azimuthDeg : aos.azimuthDeg);
  plan.start = RotatorPosition(aos, flip, config, nearAz);
  return plan;
}

AzEl RotatorPosition(AzEl look, bool flip, const RotatorConfig& config, double nearAzimuthDeg) {
  AzEl p{look.azimuthDeg, std::clamp(look.elevationDeg, 0.0, 90.0)};
  if (flip && config.elevationRange == ElevationRange::Zero180) p = Flipped(p);
  const double low = AzimuthLow(config.azimuthRange);
  const double high = AzimuthHigh(config.azimuthRange);
  // Candidates a whole number of turns apart; take the one inside the travel nearest to nearAzimuthDeg.
  double best = std::numeric_limits<double>::quiet_NaN();
  const double first = Wrap360(p.azimuthDeg) - 360.0;
  for (int turn = 0; first + 360.0 * turn <= high + 1e-9; ++turn) {
    const double a = first + 360.0 * turn;
    if (a < low - 1e-9) continue;
    if (std::isnan(best) || std::fabs(a - nearAzimuthDeg) < std::fabs(best - nearAzimuthDeg)) best = a;
  }
  p.azimuthDeg = std::isnan(best) ? Wrap360(p.azimuthDeg) : best;
  return p;
}

RotatorTarget RotatorTargetAt(double jd, AzEl look, const RotatorPassPlan& plan, const RotatorConfig& config,
                              double previousAzimuthDeg) {
  RotatorTarget target;
  if (plan.valid) {
    const double lead = config.prePositionMinutes / 1440.0;
    const bool during = jd >= plan.aosJd && jd <= plan.losJd;
    if (during && look.elevationDeg >= config.minElevationDeg) {
      target.phase = RotatorPhase::Track;
      target.position = RotatorPosition(look, plan.flip, config, previousAzimuthDeg);
      return target;
    }
    if (jd >= plan.aosJd - lead && jd < plan.aosJd) {
      target.phase = RotatorPhase::PrePosition;
      target.position = plan.start;
      return target;
    }
    if (during) {
      // Between AOS and LOS but dipping under the minimum elevation: hold still.
      target.phase = RotatorPhase::Track;
      target.position = RotatorPosition(look, plan.flip, config, previousAzimuthDeg);
      target.position.elevationDeg = plan.flip ? 180.0 - config.minElevationDeg : config.minElevationDeg;
      target.position.elevationDeg = std::clamp(target.position.elevationDeg, 0.0, 180.0);
      return target;
    }
  }
  target.phase = RotatorPhase::Park;
  target.position = RotatorPosition({config.parkAzimuthDeg, config.parkElevationDeg}, false, config,
                                    config.parkAzimuthDeg);
  return target;
}

bool RotatorNeedsMove(AzEl lastSent, AzEl target, double toleranceDeg) {
  return std::fabs(target.azimuthDeg - lastSent.azimuthDeg) > toleranceDeg ||
         std::fabs(target.elevationDeg - lastSent.elevationDeg) > toleranceDeg;
}

const char* RotatorPhaseName(RotatorPhase phase) {
  switch (phase) {
    case RotatorPhase::PrePosition: return "pre-position";
    case RotatorPhase::Track: return "track";
    case RotatorPhase::Park: break;
  }
  return "park";
}

}  // namespace norvane
