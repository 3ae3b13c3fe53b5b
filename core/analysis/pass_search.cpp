#include "core/analysis/pass_search.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>

#include "core/analysis/pass_filters.h"
#include "core/analysis/satellite_shape.h"
#include "core/analysis/visibility.h"
#include "core/astro/julian_date.h"
#include "core/propagation/working_set.h"

namespace norvane {
namespace {

constexpr double kOneSecond = 1.1574074074074073e-5;  // days
constexpr double kTenSeconds = 0.00011574074074074075;
constexpr double kThirtySeconds = 0.00034722222222222224;
constexpr double kOneMinute = 0.0006944444444444445;
constexpr double kTwoMinutes = 0.001388888888888889;
constexpr double kTenMinutes = 0.006944444444444444;
constexpr double kOneHour = 0.041666666666666664;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr int kTimeSteps = 10;  // steps of the per-satellite progress bar

std::uint32_t tickCount() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

// The state of one search that outlives a single satellite.
struct Search {
  const Catalogue& catalogue;
  Geodetic& observer;
  LookAngleCache& cache;
  ModelState& models;
  const PassSearchOptions& options;
  PredictionStore& store;
  PassSearchProgress* progress;
  double start;
  double end;
  double percentPerDay;
  int minimumState;
  WorkingSet work;
  VisibilityResult result;  // shared by all evaluations: the flare angle carries over
};

int evaluate(Search& s, int index, double t, std::uint8_t initialised) {
  const PropagationArgs args{s.models, s.catalogue, s.work, index, initialised, s.options.mode};
  return static_cast<int>(EvaluateVisibility(t, args, s.observer, s.cache, s.options.flareMode, s.result));
}

double nextTime(const Search& s, double t, int state, int previousState) {
  if (state != 0) {
    if (!s.options.flareMode) return t + kOneMinute;
    const double angle = s.result.flareAngle * kDegreesPerRadian;
    if (angle >= 30.0) return t + kThirtySeconds + kOneSecond;
    if (angle >= 10.0) return t + kTenSeconds;
    return t + kOneSecond;
  }
  t += kTwoMinutes;
  // Just set: skip most of an orbit.
  if (previousState >= 1) t += 0.85 * s.work.period * 60.0 / 86400.0;
  return t;
}

bool worthSearching(const Search& s, const Satellite& sat) {
  const bool rises = CanRise(sat, s.observer.lat);
  if (s.options.flareMode) return rises && !IsExcludedFromFlareSearch(sat.catnr);
  return !IsGeostationary(sat) && rises;
}

bool shouldRecord(const Search& s, int state, double previousMagnitude) {
  const double magnitude = s.result.magnitude;
  if (s.options.flareMode) {
    return state == 5 && magnitude != kUnknownMagnitude && previousMagnitude != kUnknownMagnitude &&
           magnitude > previousMagnitude;
  }
  return state >= s.minimumState && magnitude < s.options.minMagnitude;
}

void searchSatellite(Search& s, int index, int state) {
  if (s.progress) s.progress->timeReset();
  double t = s.start;
  double previousMagnitude = kUnknownMagnitude;
  double accumulator = 0;
  int previousState = state;
  do {
    t = nextTime(s, t, state, previousState);
    if (state >= 1 && previousState == 0) ++s.store.passes;
    // The bar holds ten steps; a span of 0 makes the percentage infinite.
    while (accumulator < kTimeSteps * 10 && (t - s.start) * s.percentPerDay >= accumulator + 10) {
      accumulator += 10;
      if (s.progress) s.progress->timeStep();
    }
    previousState = state;
    state = evaluate(s, index, t, 1);
    if (shouldRecord(s, state, previousMagnitude)) {
      if (s.options.flareMode) {
        // The brightest moment has just passed: the row holds the second before.
        t -= kOneSecond;
        state = evaluate(s, index, t, 1);
      }
      if (static_cast<int>(s.store.rows.size()) >= kMaxPredictionRows) return;
      s.store.rows.push_back({t, index, state, s.result.magnitude, s.result.flareAngle});
      if (s.options.flareMode) t += kTenMinutes;
    }
    previousMagnitude = s.result.magnitude;
  } while (t < s.end);
}

}  // namespace

void SearchPasses(const Catalogue& catalogue, Geodetic& observer, LookAngleCache& cache, ModelState& models,
                  const PassSearchOptions& options, PredictionStore& store, PassSearchProgress* progress) {
  const std::uint32_t began = tickCount();
  store.rows.clear();
  store.rows.reserve(kMaxPredictionRows);
  store.passes = 0;
  const double end = options.start + options.hours * kOneHour;
  auto s = std::make_unique<Search>(Search{catalogue, observer, cache, models, options, store, progress,
                                           options.start, end, 100.0 / (end - options.start),
                                           options.visibleOnly ? 4 : 1, WorkingSet{}, VisibilityResult{}});
  const int count = catalogue.satelliteCount < kCatalogueSlots ? catalogue.satelliteCount : kCatalogueSlots;
  if (progress) progress->begin(count);
  for (int index = 0; index < count; ++index) {
    if (progress) progress->satelliteStep();
    // The 181st satellite has no selection flag and is never searched.
    if (index >= kSelectionFlags || catalogue.selected[static_cast<std::size_t>(index)] == 0) continue;
    const int state = evaluate(*s, index, s->start, 0);
    if (!worthSearching(*s, catalogue.satellites[static_cast<std::size_t>(index)])) continue;
    searchSatellite(*s, index, state);
  }
  store.seconds = static_cast<double>(tickCount() - began) / 1000.0;
}

double PredictionStart(int year, int month, int day, int hour, int minute, int second, double utcShift) {
  return JulianDateOfDate(year, month, day, hour, minute, second) - utcShift;
}

int PredictionHours(int hours, int pickedHour) { return pickedHour > 100 || pickedHour < 0 ? 1 : hours; }

PredictionRowTexts FormatPredictionRow(const PredictionRow& row, const Catalogue& catalogue, double utcShift,
                                       bool freshSearch) {
  PredictionRowTexts texts;
  char buffer[128];
  const bool inCatalogue = row.satellite >= 0 && row.satellite < kCatalogueSlots;
  const auto& name = catalogue.satellites[inCatalogue ? static_cast<std::size_t>(row.satellite) : 0].name;
  const std::string plain(name.data(), strnlen(name.data(), name.size()));
  texts.sat = freshSearch ? plain + "  " : plain;

  const double local = row.time + utcShift;
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(local, year, month, day);
  TimeOfDay(local, hour, minute, second);
  std::snprintf(buffer, sizeof buffer, "%d-%d-%d %d:%2.2d:%2.2d", year, month, day, hour, minute, second);
  texts.time = buffer;

  texts.status = VisibilityText(static_cast<VisibilityState>(row.state));
  texts.magnitude = "N/A";
  if (row.state == 4 || row.state == 5) {
    std::snprintf(buffer, sizeof buffer, freshSearch ? "%3.1f" : "%2.1f", row.magnitude);
    texts.magnitude = buffer;
  }
  texts.flareAngle = "N/A";
  if (row.state == 5) {
    std::snprintf(buffer, sizeof buffer, "%2.2f deg", row.flareAngle * kDegreesPerRadian);
    texts.flareAngle = buffer;
  }
  std::snprintf(buffer, sizeof buffer, "%d", row.satellite);
  texts.nrInFile = buffer;
  return texts;
}

std::string SearchResultText(const PredictionStore& store) {
  char buffer[96];
  std::snprintf(buffer, sizeof buffer, "Number of passes %d calculated in %3.2fs", store.passes, store.seconds);
  return buffer;
}

}  // namespace norvane
