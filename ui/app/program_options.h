#pragma once
#include <optional>
#include <string>
#include <vector>

#include "ui/app/clock_tick.h"

namespace norvane {

// The command line of the program `norvane`.
struct ProgramOptions {
  std::optional<std::string> tle;          // opened as "Open" would
  std::optional<CalendarTime> time;        // UTC start of the simulated clock
  std::optional<SimulationMode> clock;     // clock mode at start
  std::optional<int> zoom;                 // 1..4
  std::optional<std::string> server;       // element-set server: base URL or URL template with {group}, http(s)
  bool help = false;
};

inline constexpr const char* kProgramUsage =
    "usage: norvane [--tle FILE] [--time \"YYYY-MM-DD HH:MM:SS\"] [--clock real|pause|x1|x10|x30|x60] "
    "[--zoom 1-4] [--server URL|TEMPLATE]";

// Reads the arguments after the program name (Qt's own options already
// removed). Returns the error text for a bad command line.
std::optional<std::string> ParseProgramOptions(const std::vector<std::string>& args, ProgramOptions& options);

// Applies --time and --clock to a freshly created state: the clock starts at
// the given time (x1 unless another mode is named); "pause" holds it there.
void ApplyClockOptions(const ProgramOptions& options, AppState& app);

// The largest zoom, at most wanted and at least 1, at which the 240 x 320
// screen and the window's menus and borders (chrome, pixels) fit the room
// the desktop leaves (available, pixels).
int FittingZoom(int wanted, int availableWidth, int availableHeight, int chromeWidth, int chromeHeight);

// The program folder: NORVANE_HOME when set and not empty, else
// <dataHome>/Norvane. dataHome is the user's data folder.
std::string ProgramFolder(const char* norvaneHome, const std::string& dataHome);

// Copies into the program folder what it lacks from a data folder: the skins,
// Cities.loc, Help.htm and the help pictures. Existing files are kept. False
// when the folder cannot be made.
bool SeedProgramFolder(const std::string& programFolder, const std::string& dataFolder);

}  // namespace norvane
