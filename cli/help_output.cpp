#include "cli/help_output.h"

#include <string>

#include "cli/help_text.h"

namespace norvane::cli {
namespace {

// Writes text from column `indent`, broken at blanks before column 80.
void printWrapped(std::FILE* out, std::string_view text, int indent) {
  const std::size_t width = 80 - static_cast<std::size_t>(indent);
  while (!text.empty()) {
    std::size_t cut = text.size();
    if (cut > width) {
      cut = text.rfind(' ', width);
      if (cut == std::string_view::npos || cut == 0) cut = width;
    }
    std::fprintf(out, "%*s%.*s\n", indent, "", static_cast<int>(cut), text.data());
    text.remove_prefix(cut);
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  }
}

void printOption(std::FILE* out, const std::string& command, const UsageOption& option) {
  std::string head = "--" + option.name;
  if (!option.value.empty()) head += " " + option.value;
  const std::string_view text = OptionText(command, option.name);
  if (head.size() <= 20) {
    std::fprintf(out, "  %-22s", head.c_str());
    // The first line of the text shares the option's line.
    std::string first(text);
    if (first.size() > 56) {
      const std::size_t cut = first.rfind(' ', 56);
      first.resize(cut == std::string::npos ? 56 : cut);
    }
    std::fprintf(out, "%s\n", first.c_str());
    std::string_view rest = text.substr(first.size());
    while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
    printWrapped(out, rest, 24);
  } else {
    std::fprintf(out, "  %s\n", head.c_str());
    printWrapped(out, text, 24);
  }
}

}  // namespace

std::vector<UsageOption> commandOptions(const Command& command) {
  std::vector<UsageOption> options;
  // A second usage line repeats "norvane-cli [--json]"; --json belongs to every subcommand.
  for (UsageOption& option : OptionsInUsage(command.usage)) {
    if (option.name != "json") options.push_back(std::move(option));
  }
  const auto add = [&](const std::string& name, const char* value) {
    for (const UsageOption& o : options) {
      if (o.name == name) return;
    }
    options.push_back({name, value});
  };
  for (const std::string& name : command.valueOptions) add(name, "VALUE");
  for (const std::string& name : command.flagOptions) add(name, "");
  return options;
}

void printProgramHelp(std::FILE* out) {
  std::fputs(
      "usage: norvane-cli [--json] SUBCOMMAND [OPTIONS]\n"
      "Runs the tracker's computations without a screen. Options take their value as\n"
      "the next argument; --json prints one JSON object per line.\n"
      "A --tle FILE may hold element lines, OMM CSV or OMM JSON.\n\nsubcommands:\n",
      out);
  for (const Command& c : commands()) {
    std::fprintf(out, "  %s\n", c.usage.c_str());
    printWrapped(out, CommandSummary(c.name), 6);
  }
  std::fputs("\noptions:\n", out);
  for (const char* name : {"json", "help", "version"}) printOption(out, "", {name, ""});
  std::fputs("\n'norvane-cli SUBCOMMAND --help' explains the options of one subcommand.\n", out);
}

void printCommandHelp(const Command& command, std::FILE* out) {
  std::fprintf(out, "usage: norvane-cli [--json] %s\n", command.usage.c_str());
  printWrapped(out, CommandSummary(command.name), 0);
  std::fputs("\noptions:\n", out);
  for (const UsageOption& option : commandOptions(command)) printOption(out, command.name, option);
}

}  // namespace norvane::cli
