#pragma once
#include <string>
#include <string_view>

#include "core/text/usage_line.h"
#include "ui/app/program_options.h"

namespace norvane {

// What each option of the program `norvane` does; the usage line says which
// options exist. --help and the manual page are both made from these.
struct ProgramOptionText {
  std::string_view name;
  std::string_view text;
};

inline constexpr ProgramOptionText kProgramOptionTexts[] = {
    {"tle", "Open this element file at start, as File > Open would."},
    {"time", "Start the simulated clock at this UTC time, running x1 unless --clock says otherwise."},
    {"clock", "The clock mode at start: real time, paused, or 1, 10, 30 or 60 seconds per tick."},
    {"zoom", "Scale the 240 x 320 screen by this whole factor, at most what the screen holds; remembered."},
    {"server", "The element-set server for \"Get Last\", http:// or https://; remembered."},
    {"help", "Print the usage and the options, then exit."},
    {"version", "Print the version, then exit."},
};

inline std::string_view ProgramOptionTextOf(std::string_view name) {
  for (const ProgramOptionText& t : kProgramOptionTexts) {
    if (t.name == name) return t.text;
  }
  return {};
}

// The text of `norvane --help`.
inline std::string ProgramHelpText() {
  std::string text = std::string(kProgramUsage) + " [--help] [--version]\n";
  text += "A satellite tracker: where the satellites are for an observer, now or at any time.\n\noptions:\n";
  auto options = OptionsInUsage(kProgramUsage);
  options.push_back({"help", ""});
  options.push_back({"version", ""});
  for (const UsageOption& option : options) {
    std::string head = "--" + option.name;
    if (!option.value.empty()) head += " " + option.value;
    text += "  " + head + "\n      " + std::string(ProgramOptionTextOf(option.name)) + "\n";
  }
  text +=
      "\nNORVANE_HOME moves the program folder (default ~/.local/share/Norvane). Qt's own options\n"
      "work too, e.g. -platform offscreen.\n";
  return text;
}

}  // namespace norvane
