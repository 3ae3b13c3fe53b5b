#include <cstdio>
#include <memory>
#include <string>

#include "cli/catalogue_args.h"
#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "ui/surface/skins.h"
#include "ui/views/info_page.h"

namespace norvane::cli {
namespace {

SimulationMode clockModeOf(const std::string& name) {
  static const char* const kNames[6] = {"real", "pause", "x1", "x10", "x30", "x60"};
  for (int i = 0; i < 6; ++i) {
    if (name == kNames[i]) return static_cast<SimulationMode>(i);
  }
  throw UsageError{"--clock: one of real, pause, x1, x10, x30, x60"};
}

int runInfo(const Args& args) {
  auto catalogue = catalogueFrom(args);
  AppState app;
  app.viewMode = ViewMode::Info;
  app.currentTime = requiredDouble(args, "jd");
  app.observer = observerFrom(args);
  app.currentSatellite = requiredInt(args, "index");
  if (app.currentSatellite < 0 || app.currentSatellite >= kCatalogueSlots) throw InputError{"--index: no such slot"};
  app.utcOffset = args.has("utc-shift") ? requiredDouble(args, "utc-shift") / 24.0 : 0.0;
  if (const auto mode = args.value("clock")) app.simulationMode = clockModeOf(*mode);

  Settings settings;
  settings.flares = args.flag("flares") ? 1 : 0;
  settings.s4s8 = args.flag("sgp8") ? 1 : 0;
  settings.flagRefraction = args.flag("refraction") ? 1 : 0;
  if (args.has("downlink")) settings.downlink = requiredDouble(args, "downlink");
  if (args.has("uplink")) settings.uplink = requiredDouble(args, "uplink");
  InfoOptions options;
  options.modelComparison = args.flag("test");

  GpsData gps;
  auto skins = std::make_unique<Skins>();
  auto caches = std::make_unique<ViewCaches>();
  DrawingSurface surface;
  ViewWorld world{app, *catalogue, settings, gps, *skins, *caches, surface, nullptr};
  InfoTiming timing;
  const std::vector<InfoLine> lines = FormatInfoPage(world, settings, timing, options);
  int n = 0;
  for (const InfoLine& line : lines) {
    if (args.json) {
      Record r;
      r.add("line", n).add("left", line.left).add("right", line.right);
      r.print(stdout, true);
    } else if (line.right.empty()) {
      std::printf("%s\n", line.left.c_str());
    } else {
      std::printf("%-44s %s\n", line.left.c_str(), line.right.c_str());
    }
    ++n;
  }
  return 0;
}

}  // namespace

Command infoCommand() {
  return {"info",
          "info --tle FILE --index N --jd JD --lat DEG --lon DEG --alt KM [--utc-shift H] "
          "[--clock real|pause|x1|x10|x30|x60] [--flares] [--sgp8] [--refraction] [--test] [--downlink MHZ] "
          "[--uplink MHZ]",
          {"tle", "index", "jd", "lat", "lon", "alt", "utc-shift", "clock", "downlink", "uplink"},
          {"flares", "sgp8", "refraction", "test"},
          runInfo,
          95};
}

NORVANE_CLI_COMMAND(infoCommand);

}  // namespace norvane::cli
