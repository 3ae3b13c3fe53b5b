#include "core/analysis/pass_planner.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "core/analysis/eclipse.h"
#include "core/analysis/extremum.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/orbit_bounds.h"
#include "core/analysis/satellite_shape.h"
#include "core/analysis/visibility.h"
#include "core/astro/numeric.h"

namespace norvane {
namespace {

constexpr double kSecond = 1.0 / 86400.0;  // days
constexpr double kDegree = kPi / 180.0;
// Rounding room for the skip bounds, rad.
constexpr double kVerticalMargin = 1e-7;
// Crossings and culminations are located to this, then rounded to the second.
constexpr double kTimeTolerance = 0.2 * kSecond;
// Orbits of this period and longer are propagated as deep-space ones.
constexpr double kDeepSpacePeriod = 225.0 / 1440.0;  // days
// The Sun's elevation changes by at most the Earth's rotation rate.
constexpr double kSunElevationRate = 7.3e-5 * 86400.0;  // rad/day

double toSecond(double jd) { return std::round(jd * 86400.0) / 86400.0; }
double degreesOf(double radians) { return radians / kDegree; }

std::string trimmedName(const Satellite& satellite) {
  std::string name(satellite.name.data(), strnlen(satellite.name.data(), satellite.name.size()));
  while (!name.empty() && (name.back() == ' ' || name.back() == '\r' || name.back() == '\n')) name.pop_back();
  return name;
}

// The search for one satellite: a coarse scan whose steps are as long as the
// orbit's bounds allow, then root finding for the crossings of the minimum
// elevation and a maximum search for the culmination.
class PassSearch {
 public:
  PassSearch(StateSource& source, const Satellite& satellite, int slot, const Geodetic& observer,
             const PlannerOptions& options)
      : source_(source),
        satellite_(satellite),
        slot_(slot),
        view_(observer),
        minElevation_(options.minElevationDeg * kDegree),
        finest_(std::max(1.0, options.finestStepSeconds) * kSecond),
        bounds_(orbitBoundsOf(satellite)),
        standardMagnitude_(StandardMagnitude(satellite.catnr)),
        turnRate_(bounds_.maxTurnRate) {}

  std::vector<PlannedPass> run(double start, double end);

 private:
  SkySample look(double jd) { return view_.sample(jd, source_.stateAt(jd)); }
  bool above(const SkySample& s) const { return s.elevation >= minElevation_; }
  // How long the satellite certainly stays on its side of the minimum
  // elevation, from the separation angle and the orbit's turn rate; days.
  // Backwards in time when `backwards` is set.
  double safeSpan(const SkySample& s, bool backwards = false) const;
  double stepAfter(const SkySample& s) const;
  SkySample crossing(const SkySample& before, const SkySample& after);
  // The highest point between left and right, top being the highest sample.
  SkySample culmination(const SkySample& left, const SkySample& top, const SkySample& right);
  PlannedPass makePass(const SkySample& aos, const SkySample& los, const SkySample& top);
  void findVisiblePart(PlannedPass& pass, double from, double to);

  StateSource& source_;
  const Satellite& satellite_;
  int slot_;
  SkyView view_;
  double minElevation_;
  double finest_;
  OrbitBounds bounds_;
  double standardMagnitude_;
  double turnRate_ = 0;  // rad/day, raised when the samples show a faster turn
};

double PassSearch::safeSpan(const SkySample& s, bool backwards) const {
  // The separation at which the satellite would stand at the minimum
  // elevation moves with the satellite's distance; both motions are bounded.
  const bool up = above(s);
  const double elevation = minElevation_ + (up ? kVerticalMargin : -kVerticalMargin);
  const double limit = horizonSeparation(s.footToObserver, s.footToSatellite, elevation);
  const double room = up ? limit - s.separation : s.separation - limit;
  const double slope = horizonSeparationSlope(s.footToObserver, bounds_.minRadiusKm, elevation);
  const double closing = turnRate_ + slope * bounds_.maxRadialSpeed;
  const double firstOrder = std::max(0.0, room) / closing;
  if (up || !(room > 0.0) || s.separation > kPi / 2) return firstOrder;
  // Below a right angle the separation curves away from the observer but for
  // the turn's acceleration: sep(t) >= sep + rate t - A t^2 / 2, for as long
  // as it stays below a right angle; once above, it takes the first-order
  // time to come back.
  const double scale = turnRate_ / bounds_.maxTurnRate;
  const double a = bounds_.maxTurnAcceleration * scale * scale;
  const double b = (backwards ? -s.separationRate : s.separationRate) - slope * bounds_.maxRadialSpeed;
  const double secondOrder = (b + std::sqrt(b * b + 2.0 * a * room)) / a;
  const double outAndBack = (kPi - s.separation - limit) / closing;
  return std::max(firstOrder, std::min(secondOrder, outAndBack));
}

double PassSearch::stepAfter(const SkySample& s) const {
  if (!above(s)) return std::clamp(safeSpan(s), finest_, 1.0);
  // Within a pass the culmination must stay bracketed. A near-Earth orbit
  // rises and sets once per pass, so a fortieth of its period is safe; a high
  // orbit may dip below the minimum and back, and keeps to its bounds.
  const double longest = std::max(finest_, bounds_.periodDays / 12.0);
  const double shortest = bounds_.periodDays < kDeepSpacePeriod ? bounds_.periodDays / 40.0 : 0.0;
  return std::clamp(std::max(safeSpan(s), shortest), finest_, longest);
}

SkySample PassSearch::crossing(const SkySample& before, const SkySample& after) {
  // Regula falsi with the Illinois weighting, on elevation - minimum; the
  // sample nearest the crossing is returned with the crossing's time.
  SkySample a = before;
  SkySample b = after;
  double fa = a.elevation - minElevation_;
  double fb = b.elevation - minElevation_;
  int side = 0;
  for (int i = 0; i < 60 && b.jd - a.jd > kTimeTolerance; ++i) {
    double t = (a.jd * fb - b.jd * fa) / (fb - fa);
    if (!(t > a.jd && t < b.jd)) t = 0.5 * (a.jd + b.jd);
    const SkySample s = look(t);
    if (!s.valid) break;
    const double f = s.elevation - minElevation_;
    if ((f >= 0.0) == (fb >= 0.0)) {
      b = s;
      fb = f;
      if (side == -1) fa *= 0.5;
      side = -1;
    } else {
      a = s;
      fa = f;
      if (side == 1) fb *= 0.5;
      side = 1;
    }
  }
  const double t = 0.5 * (a.jd + b.jd);
  SkySample nearest = std::fabs(a.elevation - minElevation_) < std::fabs(b.elevation - minElevation_) ? a : b;
  nearest.jd = t;
  return nearest;
}

SkySample PassSearch::culmination(const SkySample& left, const SkySample& top, const SkySample& right) {
  SkySample best = top;
  if (!(right.jd - left.jd > kTimeTolerance)) return best;
  // Seconds from left, so the tolerance is not lost in the Julian date.
  auto negatedElevation = [&](double seconds) {
    const SkySample s = look(left.jd + seconds * kSecond);
    if (!s.valid) return 10.0;
    if (s.elevation > best.elevation) best = s;
    return -s.elevation;
  };
  auto probe = [&](const SkySample& s) { return Probe{(s.jd - left.jd) / kSecond, -s.elevation}; };
  const bool leftHigher = left.elevation > right.elevation;
  double ignored = 0;
  minimiseFrom(negatedElevation, 0.0, (right.jd - left.jd) / kSecond, probe(top), probe(leftHigher ? left : right),
               probe(leftHigher ? right : left), 0.2, ignored);
  return best;
}

PlannedPass PassSearch::makePass(const SkySample& aos, const SkySample& los, const SkySample& top) {
  PlannedPass pass;
  pass.slot = slot_;
  pass.catnr = satellite_.catnr;
  pass.name = trimmedName(satellite_);
  pass.aos = toSecond(aos.jd);
  pass.los = toSecond(los.jd);
  pass.tca = toSecond(top.jd);
  pass.aosAzimuth = degreesOf(view_.azimuthOf(aos));
  pass.losAzimuth = degreesOf(view_.azimuthOf(los));
  pass.tcaAzimuth = degreesOf(view_.azimuthOf(top));
  pass.tcaElevation = degreesOf(top.elevation);
  pass.minMagnitude = kUnknownMagnitude;
  findVisiblePart(pass, aos.jd, los.jd);
  return pass;
}

void PassSearch::findVisiblePart(PlannedPass& pass, double from, double to) {
  struct Moment {
    double jd = 0;
    bool visible = false;
    double magnitude = kUnknownMagnitude;
  };
  auto moment = [&](double jd) {
    Moment m;
    m.jd = jd;
    const SkySample s = look(jd);
    // Seen by eye: above the horizon (a minimum elevation may be below it),
    // sunlit, and the sky dark.
    if (!s.valid || !(s.elevation > 0.0)) return m;
    StateVector sun;
    if (!(view_.sunElevation(jd, sun) < kDarkSkySunElevation)) return m;
    double depth = 0;
    if (SatEclipsed(s.satPos, sun, depth) != 0) return m;
    m.visible = true;
    double illumination = 0;
    double phase = 0;
    m.magnitude = PhaseMagnitude(standardMagnitude_, sun, s.satPos, s.obsPos, illumination, phase);
    if (!std::isfinite(m.magnitude)) m.magnitude = kUnknownMagnitude;
    return m;
  };
  // No dark sky anywhere in the pass: nothing to look for.
  StateVector sun;
  const double duration = to - from;
  const double darkest =
      std::min(view_.sunElevation(from, sun), view_.sunElevation(to, sun)) - kSunElevationRate * duration / 2.0;
  if (!(darkest < kDarkSkySunElevation)) return;

  // Where the visibility changes between a and b (one of each), to the tolerance.
  auto edge = [&](Moment a, Moment b) {
    while (b.jd - a.jd > kTimeTolerance) {
      const Moment m = moment(0.5 * (a.jd + b.jd));
      (m.visible == a.visible ? a : b) = m;
    }
    return a.visible ? a : b;
  };

  const double step = std::clamp(duration / 10.0, 5.0 * kSecond, 1800.0 * kSecond);
  const int steps = std::max(1, static_cast<int>(std::ceil(duration / step)));
  Moment previous = moment(from);
  // The first visible stretch: its ends and its brightest sample.
  Moment first = previous;
  Moment last = previous;
  Moment brightest = previous;
  bool inFirst = previous.visible;
  pass.visibleStretches = inFirst ? 1 : 0;
  for (int i = 1; i <= steps; ++i) {
    const Moment m = moment(i == steps ? to : from + i * step);
    if (m.visible != previous.visible) {
      const Moment change = edge(previous, m);
      if (m.visible && ++pass.visibleStretches == 1) {
        first = last = brightest = change;
        inFirst = true;
      } else if (!m.visible && inFirst) {
        last = change;
        if (change.magnitude < brightest.magnitude) brightest = change;
        inFirst = false;
      }
    }
    if (inFirst) {
      last = m;
      if (m.magnitude < brightest.magnitude) brightest = m;
    }
    previous = m;
  }
  if (pass.visibleStretches == 0) return;
  pass.visible = true;
  pass.visibleStart = toSecond(first.jd);
  pass.visibleEnd = toSecond(last.jd);
  double magnitude = brightest.magnitude;
  if (magnitude < kUnknownMagnitude && last.jd > first.jd) {
    // The brightest moment lies within a step of the brightest sample.
    const double a = std::max(first.jd, brightest.jd - step);
    const double b = std::min(last.jd, brightest.jd + step);
    double refined = 0;
    minimiseOn(
        [&](double seconds) {
          const Moment m = moment(a + seconds * kSecond);
          return m.visible ? m.magnitude : kUnknownMagnitude;
        },
        0.0, (b - a) / kSecond, 0.5, refined);
    magnitude = std::min(magnitude, refined);
  }
  pass.minMagnitude = magnitude;
}

std::vector<PlannedPass> PassSearch::run(double start, double end) {
  std::vector<PlannedPass> passes;
  if (!bounds_.usable || !(end >= start)) return passes;
  SkySample previous = look(start);
  if (!previous.valid) return passes;

  // The pass under way: its AOS and the highest sample with its neighbours.
  bool inPass = above(previous);
  bool inProgress = inPass;
  SkySample aos = previous;
  SkySample top = previous;
  SkySample topLeft = previous;   // the samples either side of the highest one
  SkySample topRight = previous;
  bool topOpen = inPass;
  SkySample beforePrevious = previous;  // for culminations between samples below the minimum

  auto closePass = [&](const SkySample& los, const SkySample& rightEdge) {
    if (topOpen) topRight = rightEdge;
    const SkySample peak =
        culmination(topLeft.jd < aos.jd ? aos : topLeft, top, topRight.jd > los.jd ? los : topRight);
    PlannedPass pass = makePass(aos, los, peak);
    pass.inProgressAtStart = inProgress;
    passes.push_back(std::move(pass));
    inPass = false;
    inProgress = false;
  };

  double t = start;
  while (t < end) {
    const double next = std::min(end, t + stepAfter(previous));
    const SkySample s = look(next);
    if (!s.valid) {
      // The orbit has decayed: a pass under way ends with the last good sample.
      if (inPass) closePass(previous, previous);
      return passes;
    }
    // The bound holds for the orbit the elements describe; a sample that turned
    // faster (a decaying orbit, say) widens it for the rest of the search.
    const double seen = std::fabs(s.separation - previous.separation) / (next - t);
    if (seen > 0.8 * turnRate_) turnRate_ = 1.5 * seen;
    if (!inPass) {
      if (above(s)) {
        inPass = true;
        aos = crossing(previous, s);
        top = s;
        topLeft = aos;
        topOpen = true;
      } else if (previous.elevation > beforePrevious.elevation && previous.elevation >= s.elevation &&
                 (safeSpan(previous, true) < previous.jd - beforePrevious.jd ||
                  safeSpan(previous) < s.jd - previous.jd)) {
        // A culmination below the minimum at the sampled times, where the
        // orbit could have reached above it in between: a grazing pass?
        const SkySample peak = culmination(beforePrevious, previous, s);
        if (above(peak)) {
          aos = crossing(beforePrevious, peak);
          const SkySample los = crossing(peak, s);
          top = topLeft = topRight = peak;
          topOpen = false;
          inPass = true;
          closePass(los, los);
        }
      }
    } else {
      if (topOpen) {
        topRight = s;
        topOpen = false;
      }
      if (s.elevation > top.elevation) {
        top = s;
        topLeft = previous;
        topOpen = true;
      }
      if (!above(s)) closePass(crossing(previous, s), s);
    }
    beforePrevious = previous;
    previous = s;
    t = next;
  }
  if (inPass) {
    const bool wholeSpan = inProgress;
    closePass(previous, previous);
    PlannedPass& last = passes.back();
    last.endsAfterSpan = true;
    last.neverSets = wholeSpan;
  }
  return passes;
}

}  // namespace

std::vector<PlannedPass> planPassesFrom(StateSource& source, const Satellite& satellite, int slot,
                                        const Geodetic& observer, double startJd, double endJd,
                                        const PlannerOptions& options) {
  PassSearch search(source, satellite, slot, observer, options);
  return search.run(startJd, endJd);
}

std::vector<PlannedPass> planPasses(const Satellite& satellite, int slot, const Geodetic& observer,
                                    double startJd, double endJd, const PlannerOptions& options) {
  if (!(satellite.xno > 0.0)) return {};
  auto source = std::make_unique<PropagatorSource>(satellite, options.family);
  return planPassesFrom(*source, satellite, slot, observer, startJd, endJd, options);
}

std::vector<PlannedPass> planCataloguePasses(const Catalogue& catalogue, std::span<const int> slots,
                                             const Geodetic& observer, double startJd, double endJd,
                                             const PlannerOptions& options) {
  std::vector<PlannedPass> all;
  const int count = std::min(catalogue.satelliteCount, kCatalogueSlots);
  for (const int slot : slots) {
    if (slot < 0 || slot >= count) continue;
    std::vector<PlannedPass> passes =
        planPasses(catalogue.satellites[static_cast<std::size_t>(slot)], slot, observer, startJd, endJd, options);
    all.insert(all.end(), passes.begin(), passes.end());
  }
  std::stable_sort(all.begin(), all.end(), [](const PlannedPass& a, const PlannedPass& b) {
    return a.aos != b.aos ? a.aos < b.aos : a.slot < b.slot;
  });
  return all;
}

std::vector<int> selectedSlots(const Catalogue& catalogue) {
  std::vector<int> slots;
  const int count = std::min(catalogue.satelliteCount, kSelectionFlags);
  for (int slot = 0; slot < count; ++slot) {
    if (catalogue.selected[static_cast<std::size_t>(slot)] != 0) slots.push_back(slot);
  }
  return slots;
}

}  // namespace norvane
