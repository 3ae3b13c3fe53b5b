#include "ui/app/program_options.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/astro/julian_date.h"

namespace norvane {
namespace {

namespace fs = std::filesystem;

std::optional<SimulationMode> ClockModeNamed(const std::string& name) {
  static const char* const kNames[6] = {"real", "pause", "x1", "x10", "x30", "x60"};
  for (int i = 0; i < 6; ++i) {
    if (name == kNames[i]) return static_cast<SimulationMode>(i);
  }
  return std::nullopt;
}

std::optional<CalendarTime> TimeNamed(const std::string& text) {
  CalendarTime t;
  int consumed = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d%n", &t.year, &t.month, &t.day, &t.hour, &t.minute, &t.second,
                  &consumed) != 6 ||
      static_cast<std::size_t>(consumed) != text.size()) {
    return std::nullopt;
  }
  if (JulianDateOfDate(t.year, t.month, t.day, t.hour, t.minute, t.second) == kInvalidJulianDate) return std::nullopt;
  return t;
}

void CopyMissing(const fs::path& from, const fs::path& to, std::error_code& error) {
  if (!fs::exists(from, error) || fs::exists(to, error)) return;
  if (fs::is_directory(from, error)) {
    fs::create_directories(to, error);
    for (const auto& entry : fs::directory_iterator(from, error)) {
      CopyMissing(entry.path(), to / entry.path().filename(), error);
    }
    return;
  }
  fs::copy_file(from, to, error);
}

}  // namespace

std::optional<std::string> ParseProgramOptions(const std::vector<std::string>& args, ProgramOptions& options) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& name = args[i];
    if (name == "--help" || name == "-h") {
      options.help = true;
      continue;
    }
    if (name != "--tle" && name != "--time" && name != "--clock" && name != "--zoom" && name != "--server") {
      return "unknown option " + name;
    }
    if (i + 1 >= args.size()) return name + " needs a value";
    const std::string& value = args[++i];
    if (name == "--tle") {
      options.tle = value;
    } else if (name == "--time") {
      options.time = TimeNamed(value);
      if (!options.time) return "--time: \"YYYY-MM-DD HH:MM:SS\" wanted: " + value;
    } else if (name == "--clock") {
      options.clock = ClockModeNamed(value);
      if (!options.clock) return "--clock: one of real, pause, x1, x10, x30, x60";
    } else if (name == "--server") {
      if (value.rfind("http://", 0) != 0 && value.rfind("https://", 0) != 0) {
        return "--server: an http:// or https:// URL wanted: " + value;
      }
      options.server = value;
    } else {
      if (value.size() != 1 || value[0] < '1' || value[0] > '4') return "--zoom: 1 to 4";
      options.zoom = value[0] - '0';
    }
  }
  return std::nullopt;
}

void ApplyClockOptions(const ProgramOptions& options, AppState& app) {
  if (options.time) {
    const CalendarTime& t = *options.time;
    app.currentTime = JulianDateOfDate(t.year, t.month, t.day, t.hour, t.minute, t.second);
    app.pausedTime = app.currentTime;
    app.simulationMode = SimulationMode::X1;
  }
  if (options.clock) app.simulationMode = *options.clock;
  if (app.simulationMode == SimulationMode::Pause && !options.time) app.pausedTime = app.currentTime;
}

int FittingZoom(int wanted, int availableWidth, int availableHeight, int chromeWidth, int chromeHeight) {
  int zoom = wanted;
  while (zoom > 1 && (240 * zoom + chromeWidth > availableWidth || 320 * zoom + chromeHeight > availableHeight)) --zoom;
  return zoom < 1 ? 1 : zoom;
}

std::string ProgramFolder(const char* norvaneHome, const std::string& dataHome) {
  if (norvaneHome != nullptr && norvaneHome[0] != '\0') return norvaneHome;
  if (dataHome.empty()) return "";
  return (fs::path(dataHome) / "Norvane").string();
}

bool SeedProgramFolder(const std::string& programFolder, const std::string& dataFolder) {
  std::error_code error;
  const fs::path home(programFolder);
  fs::create_directories(home, error);
  if (!fs::is_directory(home, error)) return false;
  const fs::path data(dataFolder);
  CopyMissing(data / "skins", home / "skins", error);
  CopyMissing(data / "Cities.loc", home / "Cities.loc", error);
  CopyMissing(data / "Frequencies.txt", home / "Frequencies.txt", error);
  // Help.htm and its pictures sit side by side.
  if (fs::is_directory(data / "help", error)) {
    for (const auto& entry : fs::directory_iterator(data / "help", error)) {
      CopyMissing(entry.path(), home / entry.path().filename(), error);
    }
  }
  return true;
}

}  // namespace norvane
