#include "core/analysis/pass_planner.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

#include "core/analysis/eclipse.h"
#include "core/analysis/extremum.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/orbit_bounds.h"
#include "core/analysis/planner_search.h"
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
constexpr double kCulminationTolerance = 0.2;  // s
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

}  // namespace

PlannerSearch::PlannerSearch(StateSource* source, const Satellite& satellite, int slot, const Geodetic& observer,
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

bool PlannerSearch::Look::await_ready() {
  ++search.samples_;
  if (search.source_ == nullptr) return false;
  search.answer_ = search.view_.sample(jd, search.source_->stateAt(jd));
  return true;
}

void PlannerSearch::Look::await_suspend(std::coroutine_handle<> waiting) {
  search.requestedJd_ = jd;
  search.waiting_ = waiting;
}

void PlannerSearch::answer(const SkySample& sample) {
  answer_ = sample;
  std::exchange(waiting_, {}).resume();
}

double PlannerSearch::safeSpan(const SkySample& s, bool backwards) const {
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

double PlannerSearch::stepAfter(const SkySample& s) const {
  if (!above(s)) return std::clamp(safeSpan(s), finest_, 1.0);
  // Within a pass the culmination must stay bracketed. A near-Earth orbit
  // rises and sets once per pass, so a fortieth of its period is safe; a high
  // orbit may dip below the minimum and back, and keeps to its bounds.
  const double longest = std::max(finest_, bounds_.periodDays / 12.0);
  const double shortest = bounds_.periodDays < kDeepSpacePeriod ? bounds_.periodDays / 40.0 : 0.0;
  return std::clamp(std::max(safeSpan(s), shortest), finest_, longest);
}

// Coroutine parameters are copied into the frame: references could dangle across a suspension.
// cppcheck-suppress passedByValue
SearchTask<SkySample> PlannerSearch::crossing(SkySample before, SkySample after) {
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
    const SkySample s = co_await look(t);
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
  co_return nearest;
}

SearchTask<SkySample> PlannerSearch::culmination(SkySample left, SkySample top, SkySample right) {
  if (!(right.jd - left.jd > kTimeTolerance)) co_return top;
  // On the negated elevation, in seconds from left so that the tolerance is
  // not lost in the Julian date.
  const double span = (right.jd - left.jd) / kSecond;
  const bool leftHigher = left.elevation > right.elevation;
  const SkySample& second = leftHigher ? left : right;
  const SkySample& third = leftHigher ? right : left;
  const MinimumSearch coarse(0.0, span, Probe{(top.jd - left.jd) / kSecond, -top.elevation},
                             Probe{(second.jd - left.jd) / kSecond, -second.elevation},
                             Probe{(third.jd - left.jd) / kSecond, -third.elevation}, kCulminationTolerance);
  const SkySample best = co_await highest(coarse, left.jd, top);
  // Near the zenith the elevation comes to a sharp peak: a tenth of a second
  // from it is worth a hundredth of a degree. There the peak is narrowed down
  // further, within the bracket the first search leaves (four tolerances).
  const double fine = std::max(0.002, 0.02 * (90.0 - degreesOf(best.elevation)));
  if (!(fine < kCulminationTolerance) || !best.valid) co_return best;
  const double x = (best.jd - left.jd) / kSecond;
  const Probe peak{x, -best.elevation};
  const MinimumSearch narrow(std::max(0.0, x - 4.0 * kCulminationTolerance),
                             std::min(span, x + 4.0 * kCulminationTolerance), peak, peak, peak, fine);
  const SkySample finest = co_await highest(narrow, left.jd, best);
  co_return finest;
}

SearchTask<SkySample> PlannerSearch::highest(MinimumSearch search, double originJd, SkySample best) {
  double seconds = 0;
  while (search.next(seconds)) {
    const double jd = originJd + seconds * kSecond;
    const SkySample s = co_await look(jd);
    if (!s.valid) {
      search.tell(10.0);
      continue;
    }
    if (s.elevation > best.elevation) best = s;
    search.tell(-s.elevation);
  }
  co_return best;
}

// Parameters by value as in crossing(); the coroutine ends without co_return, which cppcheck
// takes for a missing return.
// cppcheck-suppress passedByValue
SearchTask<void> PlannerSearch::closePass(SkySample los, SkySample rightEdge) {
  // cppcheck-suppress missingReturn
  if (topOpen_) topRight_ = rightEdge;
  const SkySample left = topLeft_.jd < aos_.jd ? aos_ : topLeft_;
  const SkySample right = topRight_.jd > los.jd ? los : topRight_;
  const SkySample peak = co_await culmination(left, top_, right);
  PlannedPass pass = co_await makePass(aos_, los, peak);
  pass.inProgressAtStart = inProgress_;
  passes_.push_back(std::move(pass));
  inPass_ = false;
  inProgress_ = false;
}

SearchTask<PlannedPass> PlannerSearch::makePass(SkySample aos, SkySample los, SkySample top) {
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
  PlannedPass withVisible = co_await withVisiblePart(std::move(pass), aos.jd, los.jd);
  co_return withVisible;
}

bool PlannerSearch::MomentLook::await_ready() {
  dark = search.view_.sunElevation(jd, sun) < kDarkSkySunElevation;
  return !dark || Look{search, jd}.await_ready();
}

PlannerSearch::Moment PlannerSearch::MomentLook::await_resume() const {
  Moment m;
  m.jd = jd;
  // Seen by eye: the sky dark, above the horizon (a minimum elevation may be
  // below it) and sunlit.
  if (!dark) return m;
  const SkySample& s = search.answer_;
  if (!s.valid || !(s.elevation > 0.0)) return m;
  double depth = 0;
  if (SatEclipsed(s.satPos, sun, depth) != 0) return m;
  m.visible = true;
  double illumination = 0;
  double phase = 0;
  m.magnitude = PhaseMagnitude(search.standardMagnitude_, sun, s.satPos, s.obsPos, illumination, phase);
  if (!std::isfinite(m.magnitude)) m.magnitude = kUnknownMagnitude;
  return m;
}

SearchTask<PlannerSearch::Moment> PlannerSearch::edge(Moment a, Moment b) {
  while (b.jd - a.jd > kTimeTolerance) {
    const Moment m = co_await moment(0.5 * (a.jd + b.jd));
    (m.visible == a.visible ? a : b) = m;
  }
  co_return a.visible ? a : b;
}

SearchTask<PlannedPass> PlannerSearch::withVisiblePart(PlannedPass pass, double from, double to) {
  // No dark sky anywhere in the pass: nothing to look for.
  StateVector sun;
  const double duration = to - from;
  const double darkest =
      std::min(view_.sunElevation(from, sun), view_.sunElevation(to, sun)) - kSunElevationRate * duration / 2.0;
  if (!(darkest < kDarkSkySunElevation)) co_return pass;

  const double step = std::clamp(duration / 10.0, 5.0 * kSecond, 1800.0 * kSecond);
  const int steps = std::max(1, static_cast<int>(std::ceil(duration / step)));
  Moment previous = co_await moment(from);
  // The first visible stretch: its ends and its brightest sample.
  Moment first = previous;
  Moment last = previous;
  Moment brightest = previous;
  bool inFirst = previous.visible;
  pass.visibleStretches = inFirst ? 1 : 0;
  for (int i = 1; i <= steps; ++i) {
    const double jd = i == steps ? to : from + i * step;
    const Moment m = co_await moment(jd);
    if (m.visible != previous.visible) {
      const Moment change = co_await edge(previous, m);
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
  if (pass.visibleStretches == 0) co_return pass;
  pass.visible = true;
  pass.visibleStart = toSecond(first.jd);
  pass.visibleEnd = toSecond(last.jd);
  double magnitude = brightest.magnitude;
  if (magnitude < kUnknownMagnitude && last.jd > first.jd) {
    // The brightest moment lies within a step of the brightest sample; in
    // seconds from a.
    const double a = std::max(first.jd, brightest.jd - step);
    const double b = std::min(last.jd, brightest.jd + step);
    const double x = kGoldenSection * ((b - a) / kSecond);
    const Moment start = co_await moment(a + x * kSecond);
    const Probe probe{x, start.visible ? start.magnitude : kUnknownMagnitude};
    MinimumSearch search(0.0, (b - a) / kSecond, probe, probe, probe, 0.5);
    double seconds = 0;
    while (search.next(seconds)) {
      const Moment m = co_await moment(a + seconds * kSecond);
      search.tell(m.visible ? m.magnitude : kUnknownMagnitude);
    }
    magnitude = std::min(magnitude, search.best().f);
  }
  pass.minMagnitude = magnitude;
  co_return pass;
}

SearchTask<std::vector<PlannedPass>> PlannerSearch::run(double start, double end) {
  passes_.clear();
  if (!bounds_.usable || !(end >= start)) co_return std::move(passes_);
  SkySample previous = co_await look(start);
  if (!previous.valid) co_return std::move(passes_);

  inPass_ = above(previous);
  inProgress_ = inPass_;
  aos_ = top_ = topLeft_ = topRight_ = previous;
  topOpen_ = inPass_;
  SkySample beforePrevious = previous;  // for culminations between samples below the minimum

  double t = start;
  while (t < end) {
    const double next = std::min(end, t + stepAfter(previous));
    const SkySample s = co_await look(next);
    if (!s.valid) {
      // The orbit has decayed: a pass under way ends with the last good sample.
      if (inPass_) co_await closePass(previous, previous);
      co_return std::move(passes_);
    }
    // The bound holds for the orbit the elements describe; a sample that turned
    // faster (a decaying orbit, say) widens it for the rest of the search.
    const double seen = std::fabs(s.separation - previous.separation) / (next - t);
    if (seen > 0.8 * turnRate_) turnRate_ = 1.5 * seen;
    if (!inPass_) {
      if (above(s)) {
        inPass_ = true;
        aos_ = co_await crossing(previous, s);
        top_ = s;
        topLeft_ = aos_;
        topOpen_ = true;
      } else if (previous.elevation > beforePrevious.elevation && previous.elevation >= s.elevation &&
                 (safeSpan(previous, true) < previous.jd - beforePrevious.jd ||
                  safeSpan(previous) < s.jd - previous.jd)) {
        // A culmination below the minimum at the sampled times, where the
        // orbit could have reached above it in between: a grazing pass?
        const SkySample peak = co_await culmination(beforePrevious, previous, s);
        if (above(peak)) {
          aos_ = co_await crossing(beforePrevious, peak);
          const SkySample los = co_await crossing(peak, s);
          top_ = topLeft_ = topRight_ = peak;
          topOpen_ = false;
          inPass_ = true;
          co_await closePass(los, los);
        }
      }
    } else {
      if (topOpen_) {
        topRight_ = s;
        topOpen_ = false;
      }
      if (s.elevation > top_.elevation) {
        top_ = s;
        topLeft_ = previous;
        topOpen_ = true;
      }
      if (!above(s)) {
        const SkySample los = co_await crossing(previous, s);
        co_await closePass(los, s);
      }
    }
    beforePrevious = previous;
    previous = s;
    t = next;
  }
  if (inPass_) {
    const bool wholeSpan = inProgress_;
    co_await closePass(previous, previous);
    PlannedPass& last = passes_.back();
    last.endsAfterSpan = true;
    last.neverSets = wholeSpan;
  }
  co_return std::move(passes_);
}

std::vector<PlannedPass> planPassesFrom(StateSource& source, const Satellite& satellite, int slot,
                                        const Geodetic& observer, double startJd, double endJd,
                                        const PlannerOptions& options) {
  PlannerSearch search(&source, satellite, slot, observer, options);
  SearchTask<std::vector<PlannedPass>> task = search.run(startJd, endJd);
  task.resume();  // every sample is answered at once: the search runs to its end
  return task.result();
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
