#include <chrono>
#include <cmath>
#include <ctime>
#include <cstdio>
#include <limits>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "cli/catalogue_args.h"
#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/analysis/pass_calendar.h"
#include "core/analysis/pass_planner.h"
#include "core/analysis/pass_search.h"
#include "core/analysis/visibility_state.h"

namespace norvane::cli {
namespace {

// "YYYY-MM-DD HH:MM:SS" as six whole numbers (no range checks).
void splitStart(const std::string& text, int (&f)[6]) {
  int consumed = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d%n", &f[0], &f[1], &f[2], &f[3], &f[4], &f[5], &consumed) != 6 ||
      static_cast<std::size_t>(consumed) != text.size()) {
    throw InputError{"--start: cannot read " + text};
  }
}

// --select 0,3,5 replaces the selection; slots past the 180 flags are refused.
void applySelection(const std::string& list, Catalogue& catalogue) {
  catalogue.selected.fill(0);
  std::size_t start = 0;
  while (start <= list.size()) {
    const std::size_t comma = list.find(',', start);
    const std::string item = list.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
    const int slot = toInt("select", item);
    if (slot < 0 || slot >= kSelectionFlags) throw InputError{"--select: no selection flag " + item};
    catalogue.selected[static_cast<std::size_t>(slot)] = 1;
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
}

// --- The pass planner (--summary): one record per pass. ---

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();  // printed as null

// ISO 8601 UTC text of a Julian date, to the second; "" for no time.
std::string isoUtc(double jd) {
  if (!std::isfinite(jd)) return "";
  const auto t = static_cast<std::time_t>(std::llround((jd - 2440587.5) * 86400.0));
  std::tm utc{};
  if (gmtime_r(&t, &utc) == nullptr) return "";
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

double nowJulianDate() {
  const auto seconds = std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
  return 2440587.5 + seconds / 86400.0;
}

void printPlannedPass(const PlannedPass& p, bool json) {
  // A pass already up at the start has no AOS in the span, one still up at
  // the end no LOS.
  const double aos = p.inProgressAtStart ? kNoValue : p.aos;
  const double los = p.endsAfterSpan ? kNoValue : p.los;
  const double visibleStart = p.visible ? p.visibleStart : kNoValue;
  const double visibleEnd = p.visible ? p.visibleEnd : kNoValue;
  Record r;
  r.add("sat", p.name).add("slot", p.slot).add("catnr", p.catnr);
  r.add("aos", aos).add("aos_utc", isoUtc(aos)).add("aos_az", p.inProgressAtStart ? kNoValue : p.aosAzimuth);
  r.add("tca", p.tca).add("tca_utc", isoUtc(p.tca)).add("tca_el", p.tcaElevation).add("tca_az", p.tcaAzimuth);
  r.add("los", los).add("los_utc", isoUtc(los)).add("los_az", p.endsAfterSpan ? kNoValue : p.losAzimuth);
  r.add("duration", p.durationSeconds()).add("never_sets", p.neverSets ? 1 : 0);
  r.add("in_progress", p.inProgressAtStart ? 1 : 0).add("ends_after", p.endsAfterSpan ? 1 : 0);
  r.add("visible_start", visibleStart).add("visible_start_utc", isoUtc(visibleStart));
  r.add("visible_end", visibleEnd).add("visible_end_utc", isoUtc(visibleEnd));
  r.add("min_mag", p.visible && p.minMagnitude < 90.0 ? p.minMagnitude : kNoValue);
  r.print(stdout, json);
}

int runPassSummary(const Args& args) {
  int f[6] = {0, 0, 0, 0, 0, 0};
  splitStart(required(args, "start"), f);
  const double utcShift = (args.has("utc-shift") ? requiredDouble(args, "utc-shift") : 0.0) / 24.0;
  const double start = PredictionStart(f[0], f[1], f[2], f[3], f[4], f[5], utcShift);
  const double hours = requiredDouble(args, "hours");
  if (!(hours >= 0.0 && hours <= 240.0)) throw InputError{"--hours: the planner looks at most 240 hours ahead"};
  PlannerOptions options;
  if (args.has("min-el")) options.minElevationDeg = requiredDouble(args, "min-el");
  if (args.flag("sgp8")) options.family = ModelFamily::Sgp8Sdp8;
  if (!(options.minElevationDeg >= -90.0 && options.minElevationDeg <= 90.0)) {
    throw InputError{"--min-el: not an elevation in degrees"};
  }
  const Geodetic observer = observerFrom(args);
  auto catalogue = catalogueFrom(args);
  std::vector<int> slots;
  if (args.has("select")) {
    applySelection(*args.value("select"), *catalogue);
    slots = selectedSlots(*catalogue);
  } else {
    slots.resize(static_cast<std::size_t>(std::max(0, std::min(catalogue->satelliteCount, kCatalogueSlots))));
    std::iota(slots.begin(), slots.end(), 0);
  }

  const auto began = std::chrono::steady_clock::now();
  const std::vector<PlannedPass> passes =
      planCataloguePasses(*catalogue, slots, observer, start, start + hours / 24.0, options);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();

  if (args.has("ics") && !writePassCalendar(*args.value("ics"), passes, nowJulianDate())) {
    throw InputError{"--ics: cannot write " + *args.value("ics")};
  }
  for (const PlannedPass& p : passes) printPlannedPass(p, args.json);
  Record summary;
  summary.add("passes", static_cast<int>(passes.size())).add("seconds", seconds);
  summary.print(stdout, args.json);
  return 0;
}

// --- The prediction list search. ---

int runPasses(const Args& args) {
  if (args.flag("summary")) return runPassSummary(args);
  for (const char* plannerOnly : {"min-el", "ics"}) {
    if (args.has(plannerOnly)) throw UsageError{std::string("--") + plannerOnly + " goes with --summary"};
  }
  if (args.flag("sgp8")) throw UsageError{"--sgp8 goes with --summary"};
  int f[6] = {0, 0, 0, 0, 0, 0};
  splitStart(required(args, "start"), f);
  const double utcShift = (args.has("utc-shift") ? requiredDouble(args, "utc-shift") : 0.0) / 24.0;
  PassSearchOptions options;
  options.start = PredictionStart(f[0], f[1], f[2], f[3], f[4], f[5], utcShift);
  options.hours = PredictionHours(requiredInt(args, "hours"), f[3]);
  options.flareMode = args.flag("flares");
  options.visibleOnly = args.flag("visible");
  options.minMagnitude = args.has("min-mag") ? requiredInt(args, "min-mag") : 20;
  Geodetic observer = observerFrom(args);

  auto catalogue = catalogueFrom(args);
  if (args.has("select")) applySelection(*args.value("select"), *catalogue);
  auto models = std::make_unique<ModelState>();
  LookAngleCache cache;
  PredictionStore store;
  SearchPasses(*catalogue, observer, cache, *models, options, store, nullptr);

  for (const PredictionRow& row : store.rows) {
    const PredictionRowTexts texts = FormatPredictionRow(row, *catalogue, utcShift, true);
    Record r;
    r.add("time", row.time).add("local_time", texts.time).add("sat", texts.sat);
    r.add("slot", row.satellite).add("state", row.state).add("state_text", texts.status);
    r.add("magnitude", row.magnitude).add("flare_angle", degrees(row.flareAngle));
    r.print(stdout, args.json);
  }
  Record summary;
  summary.add("passes", store.passes).add("rows", static_cast<int>(store.rows.size()));
  summary.add("seconds", store.seconds);
  summary.print(stdout, args.json);
  return 0;
}

}  // namespace

Command passesCommand() {
  return {"passes",
          "passes --tle FILE --start \"YYYY-MM-DD HH:MM:SS\" --hours H --lat DEG --lon DEG --alt KM "
          "[--utc-shift H] [--visible] [--flares] [--min-mag M] [--select 0,3,5]\n"
          "       norvane-cli [--json] passes --summary --tle FILE --start \"YYYY-MM-DD HH:MM:SS\" --hours H "
          "--lat DEG --lon DEG --alt KM [--utc-shift H] [--min-el DEG] [--select 0,3,5] [--ics FILE] [--sgp8]",
          {"tle", "start", "hours", "lat", "lon", "alt", "utc-shift", "min-mag", "select", "min-el", "ics"},
          {"visible", "flares", "summary", "sgp8"},
          runPasses,
          45};
}

NORVANE_CLI_COMMAND(passesCommand);

}  // namespace norvane::cli
