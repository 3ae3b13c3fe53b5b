#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "cli/command.h"
#include "cli/message_capture.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/elements/element_file.h"
#include "core/elements/file_name_modes.h"
#include "core/platform/data_folder.h"
#include "gps/nmea_decoder.h"
#include "ui/surface/png_writer.h"
#include "ui/surface/skins.h"
#include "ui/views/gps_page.h"
#include "ui/views/info_page.h"
#include "ui/views/map_view.h"
#include "ui/views/orbit_view.h"
#include "ui/views/sky_view.h"

namespace norvane::cli {
namespace {

// A clock that never moves, so that NMEA time stamps are reproducible.
class StillClock : public Clock {
 public:
  std::uint32_t tickCount() override { return 0; }
};

std::string readText(const std::string& option, const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw InputError{"--" + option + ": cannot read " + path};
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// "Name=value" lines with the settings' stored names; '#' starts a comment.
void applySettings(const std::string& text, Settings& settings) {
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) throw InputError{"--settings: not NAME=VALUE: " + line};
    const std::string name = line.substr(0, eq);
    const int value = toInt(name, line.substr(eq + 1));
    if (name == "Stars_Mag") settings.starsMag = static_cast<std::int16_t>(value);
    else if (name == "SNtoNS") settings.snToNs = value;
    else if (name == "Flag_planets") settings.flagPlanets = static_cast<std::uint8_t>(value);
    else if (name == "flares") settings.flares = value;
    else if (name == "s4_s8") settings.s4s8 = value;
    else if (name == "flag_refraction") settings.flagRefraction = value;
    else if (name == "Sat_Display") settings.satDisplay = value;
    else if (name == "Flag_colors") settings.flagColors = value;
    else throw InputError{"--settings: unknown setting " + name};
  }
}

// Every "$" line of an NMEA capture, decoded in order.
void feedNmea(const std::string& text, GpsData& gps) {
  NmeaWanted wanted{};
  wanted.fill(true);
  StillClock clock;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] != '$' || line.size() > 101) continue;
    line += "\r\n";
    DecodeNmeaSentence(line.c_str(), line.size() + 1, gps, wanted, clock);
  }
}

SimulationMode clockMode(const std::string& name) {
  static const char* const kNames[6] = {"real", "pause", "x1", "x10", "x30", "x60"};
  for (int i = 0; i < 6; ++i) {
    if (name == kNames[i]) return static_cast<SimulationMode>(i);
  }
  throw UsageError{"--clock: one of real, pause, x1, x10, x30, x60"};
}

Point tapPoint(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) throw InputError{"--tap: X,Y wanted: " + text};
  return {toInt("tap", text.substr(0, comma)), toInt("tap", text.substr(comma + 1))};
}

void selectOnly(const std::string& list, Catalogue& catalogue) {
  catalogue.selected.fill(0);
  std::istringstream items(list);
  std::string item;
  while (std::getline(items, item, ',')) {
    const int index = toInt("select", item);
    if (index < 0 || index >= kSelectionFlags) throw InputError{"--select: no slot " + item};
    catalogue.selected[static_cast<std::size_t>(index)] = 1;
  }
}

std::string skinFolder(const Args& args) {
  if (const auto folder = args.value("skins")) return *folder;
  if (const char* home = std::getenv("NORVANE_HOME")) return std::string(home) + "/skins";
  return ProgramDataFolder() + "/skins";
}

int runRender(const Args& args) {
  if (args.positional.size() != 1) throw UsageError{"render needs one view: sky, map, gps, orbit or info"};
  const std::string view = args.positional[0];
  if (view != "info" && view != "sky" && view != "map" && view != "gps" && view != "orbit") {
    throw UsageError{"render: unknown view " + view};
  }
  const std::string out = required(args, "out");
  auto catalogue = std::make_unique<Catalogue>();
  MessageCapture sink;
  const std::string tle = required(args, "tle");
  const bool opened = openElementFile(*catalogue, sink, tle);
  sink.printErrors();
  if (!opened) return 1;
  for (int i = 0; i < catalogue->satelliteCount && i < kSelectionFlags; ++i) {
    catalogue->selected[static_cast<std::size_t>(i)] = 1;
  }
  if (const auto list = args.value("select")) selectOnly(*list, *catalogue);

  Settings settings;
  if (const auto path = args.value("settings")) applySettings(readText("settings", *path), settings);
  GpsData gps;
  if (const auto path = args.value("gps")) feedNmea(readText("gps", *path), gps);

  AppState app;
  app.viewMode = view == "sky" ? ViewMode::Sky : view == "map" ? ViewMode::Map : view == "gps"  ? ViewMode::Gps
                : view == "info" ? ViewMode::Info
                                 : ViewMode::Orbit;
  app.currentTime = requiredDouble(args, "jd");
  app.observer = observerFrom(args);
  app.currentSatellite = args.has("current") ? requiredInt(args, "current") : 0;
  if (app.currentSatellite < 0 || app.currentSatellite >= kCatalogueSlots) throw InputError{"--current: no such slot"};
  app.utcOffset = args.has("utc-shift") ? requiredDouble(args, "utc-shift") / 24.0 : 0.0;
  app.gpsTracking = args.has("gps") ? 1 : 0;
  app.iridiumFile = isIridiumFileName(tle, IridiumMatch::EitherCaseFirstLetter) ? 1 : 0;
  app.flaresEnabled = app.iridiumFile != 0 ? settings.flares : 0;
  if (const auto mode = args.value("clock")) app.simulationMode = clockMode(*mode);
  if (const auto tap = args.value("tap")) app.tapPoint = tapPoint(*tap);

  DrawingSurface surface = MakeOffscreenSurface();
  auto skins = std::make_unique<Skins>();
  MessageCapture skinMessages;
  LoadSkins(*skins, surface, skinFolder(args), skinMessages);
  skinMessages.printErrors();
  auto caches = std::make_unique<ViewCaches>();
  ViewWorld world{app, *catalogue, settings, gps, *skins, *caches, surface, nullptr};
  if (view == "sky") PaintSky(world);
  if (view == "map") PaintMap(world);
  if (view == "gps") PaintGpsPage(world, app.currentTime);
  if (view == "info") {
    InfoTiming timing;
    const std::vector<InfoLine> lines = FormatInfoPage(world, settings, timing, InfoOptions{});
    DrawInfoPage(surface, lines, InfoColoursFor(settings));
  }
  if (view == "orbit") {
    BuildOrbitScene(world);
    PaintOrbit(world);
  }
  if (!WritePng(surface, out)) throw InputError{"cannot write " + out};
  Record r;
  r.add("view", view).add("path", out).add("current", app.currentSatellite);
  r.add("clock", static_cast<int>(app.simulationMode));
  r.print(stdout, args.json);
  return 0;
}

}  // namespace

Command renderCommand() {
  return {"render",
          "render (sky|map|gps|orbit|info) --tle FILE --jd JD --lat DEG --lon DEG --alt KM [--current N] "
          "[--settings FILE] [--gps NMEA-FILE] [--select 0,3,5] [--tap X,Y] [--clock real|pause|x1|x10|x30|x60] "
          "[--utc-shift H] [--skins DIR] --out FILE.png",
          {"tle", "jd", "lat", "lon", "alt", "current", "settings", "gps", "select", "tap", "clock", "utc-shift",
           "skins", "out"},
          {},
          runRender,
          90};
}

NORVANE_CLI_COMMAND(renderCommand);

}  // namespace norvane::cli
