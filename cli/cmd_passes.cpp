#include <cstdio>
#include <memory>
#include <string>

#include "cli/catalogue_args.h"
#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
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

int runPasses(const Args& args) {
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
          "[--utc-shift H] [--visible] [--flares] [--min-mag M] [--select 0,3,5]",
          {"tle", "start", "hours", "lat", "lon", "alt", "utc-shift", "min-mag", "select"},
          {"visible", "flares"},
          runPasses,
          45};
}

NORVANE_CLI_COMMAND(passesCommand);

}  // namespace norvane::cli
