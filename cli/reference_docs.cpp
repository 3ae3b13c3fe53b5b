#include "cli/reference_docs.h"

#include <vector>

#include "cli/command.h"
#include "cli/help_output.h"
#include "cli/help_text.h"
#include "core/text/usage_line.h"
#include "download/categories.h"
#include "ui/app/program_help.h"

namespace norvane::cli {
namespace {

std::string header(std::string_view name, const DocsContext& context) {
  std::string upper;
  for (const char c : name) upper += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return ".TH " + roffCode(upper) + " 1 \"\" \"Norvane " + context.version + "\" \"User Commands\"\n"
         // Ragged right without hyphenation: long usage lines keep their options whole.
         ".ad l\n.nh\n";
}

// One option as a tagged paragraph: bold name, italic placeholder, the text.
std::string optionParagraph(const UsageOption& option, std::string_view text) {
  std::string out = ".TP\n.B " + roffCode("--" + option.name);
  if (!option.value.empty()) out = ".TP\n.BI " + roffCode("--" + option.name) + " \" " + roffCode(option.value) + "\"";
  return out + "\n" + roffText(text) + "\n";
}

std::string filesSection(const DocsContext& context) {
  const std::string data = roffText(context.dataFolder);
  return ".SH FILES\n"
         ".TP\n.I " + data + "\n"
         "The installed skins, help page and pictures, cities list and the other files the programs read; a new "
         "program folder is filled from here.\n"
         ".TP\n.I " + data + "/examples\n"
         "Example element files: bright satellites of 14 April 2017 and the Iridium satellites of 21 June 2014.\n"
         ".TP\n.I ~/.local/share/Norvane\n"
         "The program folder: the selection file Select.bol, Help.htm, Cities.loc and the skins folder.\n"
         ".TP\n.I ~/.config/Norvane/Norvane.ini\n"
         "The tracker's settings.\n"
         ".TP\n.I ~/.config/Norvane/Window.ini\n"
         "The window's zoom and the element-set server.\n";
}

std::string environmentSection() {
  return ".SH ENVIRONMENT\n.TP\n.B NORVANE_HOME\n"
         "The program folder, instead of ~/.local/share/Norvane.\n";
}

// The values an option takes when they form a short list: the usage's
// alternatives, or the element-set categories of the download list.
std::vector<std::string> choicesOf(const UsageOption& option) {
  if (option.name == "category") {
    std::vector<std::string> names;
    for (const Category& c : categories()) names.emplace_back(c.fileName);
    return names;
  }
  return ChoicesIn(option.value);
}

enum class ValueKind { None, File, Directory, Choices };

ValueKind kindOf(const UsageOption& option) {
  if (option.value.empty()) return ValueKind::None;
  if (!choicesOf(option).empty()) return ValueKind::Choices;
  if (option.value == "DIR") return ValueKind::Directory;
  if (option.value.find("FILE") != std::string::npos || option.value.find("PATH") != std::string::npos) {
    return ValueKind::File;
  }
  return ValueKind::None;
}

// The lower-case alternatives of a subcommand's first positional word: "render (sky|map|...)".
std::vector<std::string> positionalChoices(const Command& command) {
  const std::vector<std::string> words = UsageWords(command.usage);
  if (words.size() < 2 || words[1].front() != '(') return {};
  return ChoicesIn(Unbracketed(words[1]));
}

// Each line of a subcommand's usage in bold, one below the other; later lines
// name the program themselves.
std::string usageLines(std::string_view usage) {
  std::string out;
  while (!usage.empty()) {
    const std::size_t end = usage.find('\n');
    std::string_view line = usage.substr(0, end);
    usage = end == std::string_view::npos ? std::string_view() : usage.substr(end + 1);
    while (!line.empty() && line.front() == ' ') line.remove_prefix(1);
    if (line.empty()) continue;
    if (!out.empty()) out += ".br\n";
    out += ".B " + std::string(line.substr(0, 12) == "norvane-cli " ? "" : "norvane\\-cli ") + roffCode(line) + "\n";
  }
  return out;
}

std::string joined(const std::vector<std::string>& words, std::string_view prefix = "") {
  std::string out;
  for (const std::string& w : words) out += (out.empty() ? "" : " ") + std::string(prefix) + w;
  return out;
}

}  // namespace

std::string roffText(std::string_view text) {
  std::string out;
  bool lineStart = true;
  for (const char c : text) {
    if (lineStart && (c == '.' || c == '\'')) out += "\\&";
    if (c == '\\') {
      out += "\\e";
    } else {
      out += c;
    }
    lineStart = c == '\n';
  }
  return out;
}

std::string roffCode(std::string_view text) {
  std::string out;
  for (const char c : roffText(text)) {
    if (c == '"') {
      out += "\\(dq";  // a plain quote would end a macro argument
      continue;
    }
    if (c == '-') out += '\\';
    out += c;
  }
  return out;
}

std::string cliManualPage(const DocsContext& context) {
  std::string page = header("norvane-cli", context);
  page += ".SH NAME\nnorvane\\-cli \\- the Norvane satellite tracker's computations on the command line\n";
  page += ".SH SYNOPSIS\n.B norvane\\-cli\n[\\fB\\-\\-json\\fR] \\fISUBCOMMAND\\fR [\\fIOPTIONS\\fR]\n.br\n"
          ".B norvane\\-cli\n\\fISUBCOMMAND\\fR \\fB\\-\\-help\\fR\n.br\n.B norvane\\-cli \\-\\-version\n";
  page +=
      ".SH DESCRIPTION\n"
      "norvane\\-cli runs the computations of the satellite tracker \\fBnorvane\\fR(1) without a screen, for "
      "scripts, servers and tests: element files, orbit propagation, look angles, the Sun, Moon and planets, "
      "pass and flare searches, NMEA decoding, element downloads and the tracker's screens as PNG pictures.\n"
      ".PP\n"
      "Options take their value as the next argument. Without \\fB\\-\\-json\\fR the output is aligned "
      "\\fIkey value\\fR text; with it, one JSON object per line with full-precision numbers (non-finite numbers "
      "as null). Angles are in degrees, except the sidereal time and the Moon's age, in radians; azimuths and "
      "sub-satellite longitudes lie in [0, 360). The \\fB\\-\\-index\\fR of a satellite is its 0-based slot in "
      "the element file. Dates go to the calendar conversion unchecked.\n";
  page += ".SH OPTIONS\n";
  for (const char* name : {"json", "help", "version"}) page += optionParagraph({name, ""}, OptionText("", name));
  page += ".SH SUBCOMMANDS\n";
  for (const Command& command : commands()) {
    page += ".SS " + roffCode(command.name) + "\n" + usageLines(command.usage) + ".PP\n" +
            roffText(CommandSummary(command.name)) + "\n";
    for (const UsageOption& option : commandOptions(command)) {
      page += optionParagraph(option, OptionText(command.name, option.name));
      if (option.name == "category") page += "One of: " + roffCode(joined(choicesOf(option))) + ".\n";
    }
  }
  page += ".SH EXIT STATUS\n.TP\n.B 0\nSuccess.\n.TP\n.B 1\n"
          "Bad input: a file that cannot be read, a value that is not a number; one line on standard error.\n"
          ".TP\n.B 2\nBad usage: an unknown subcommand or option, a missing option.\n";
  page += environmentSection();
  page += filesSection(context);
  const std::string example = roffCode(context.dataFolder + "/examples/visual_2017-04-14.txt");
  page += ".SH EXAMPLES\n.EX\nnorvane\\-cli \\-\\-json propagate \\-\\-tle " + example +
          " \\-\\-index 0 \\-\\-jd 2457858.5\n"
          "norvane\\-cli passes \\-\\-tle " + example +
          " \\-\\-start \"2017\\-04\\-14 20:00:00\" \\-\\-hours 3 \\-\\-lat 52.52 \\-\\-lon 13.40 \\-\\-alt 0.034 "
          "\\-\\-visible\n"
          "norvane\\-cli render sky \\-\\-tle " + example +
          " \\-\\-jd 2457858.35 \\-\\-lat 52.52 \\-\\-lon 13.40 \\-\\-alt 0.034 \\-\\-out sky.png\n.EE\n";
  page += ".SH SEE ALSO\n\\fBnorvane\\fR(1)\n";
  return page;
}

std::string windowManualPage(const DocsContext& context) {
  std::string page = header("norvane", context);
  page += ".SH NAME\nnorvane \\- satellite tracker for radio amateurs and satellite watchers\n";
  page += ".SH SYNOPSIS\n.B norvane\n" + roffCode(std::string_view(kProgramUsage).substr(std::string_view(kProgramUsage).find('['))) + "\n";
  page +=
      ".SH DESCRIPTION\n"
      "Norvane reads two-line element sets, propagates them with the SGP4/SDP4 (or SGP8/SDP8) models and shows "
      "where each selected satellite is for an observer on the ground, now or at a simulated time: an information "
      "page, an Earth map with the day and night sides, a sky view with stars and planets, an orbit view and a GPS "
      "page, on a 240 x 320 screen that the window can zoom.\n"
      ".PP\n"
      "Without options it reopens the last element file and runs in real time. Edit > Sat select chooses the "
      "satellites, Edit > Location the observer, Edit > Predict lists passes and flares, File > Get Last downloads "
      "current element sets. Help > Help opens the user guide.\n";
  page += ".SH OPTIONS\n";
  std::vector<UsageOption> options = OptionsInUsage(kProgramUsage);
  options.push_back({"help", ""});
  options.push_back({"version", ""});
  for (const UsageOption& option : options) page += optionParagraph(option, ProgramOptionTextOf(option.name));
  page += ".PP\nQt's own options work as usual, e.g. \\fB\\-platform offscreen\\fR or \\fB\\-platform linuxfb\\fR "
          "for a board's frame buffer.\n";
  page += environmentSection();
  page += filesSection(context);
  page += ".SH EXAMPLES\n.EX\nnorvane \\-\\-tle " + roffCode(context.dataFolder + "/examples/visual_2017-04-14.txt") +
          " \\-\\-time \"2017\\-04\\-14 20:00:00\" \\-\\-zoom 2\n.EE\n";
  page += ".SH SEE ALSO\n\\fBnorvane\\-cli\\fR(1)\n";
  return page;
}

std::string cliBashCompletion() {
  std::vector<std::string> names;
  for (const Command& command : commands()) names.push_back(command.name);
  std::string perCommand;
  std::string valueCases;
  for (const Command& command : commands()) {
    std::vector<std::string> optionNames;
    std::vector<std::string> plainValues;
    for (const UsageOption& option : commandOptions(command)) {
      optionNames.push_back(option.name);
      const std::string key = "\"" + command.name + " --" + option.name + "\")";
      switch (kindOf(option)) {
        case ValueKind::File:
          valueCases += "    " + key + " _norvane_cli_reply -o filenames -f ;;\n";
          break;
        case ValueKind::Directory:
          valueCases += "    " + key + " _norvane_cli_reply -o filenames -d ;;\n";
          break;
        case ValueKind::Choices:
          valueCases += "    " + key + " _norvane_cli_reply -W \"" + joined(choicesOf(option)) + "\" ;;\n";
          break;
        case ValueKind::None:
          if (!option.value.empty()) plainValues.push_back("--" + option.name);
          break;
      }
    }
    perCommand += "    " + command.name + ") options=\"" + joined(optionNames, "--") + "\" values=\" " +
                  joined(plainValues) + " \" words=\"" + joined(positionalChoices(command)) + "\" ;;\n";
  }
  return "# bash completion for norvane-cli; made from the program's own command table.\n"
         "_norvane_cli_reply() {\n"
         "  local -a how=()\n"
         "  if [[ $1 == -o ]]; then compopt -o \"$2\" 2>/dev/null; shift 2; fi\n"
         "  if [[ $1 == -W ]]; then how=(-W \"$2\"); else how=(\"$1\"); fi\n"
         "  mapfile -t COMPREPLY < <(compgen \"${how[@]}\" -- \"$cur\")\n"
         "}\n\n"
         "_norvane_cli() {\n"
         "  local cur=${COMP_WORDS[COMP_CWORD]} prev=\"\" command=\"\" i\n"
         "  ((COMP_CWORD > 0)) && prev=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
         "    [[ ${COMP_WORDS[i]} == -* ]] || { command=${COMP_WORDS[i]}; break; }\n"
         "  done\n"
         "  local options=\"\" values=\" \" words=\"\"\n"
         "  case $command in\n" +
         perCommand +
         "    \"\") _norvane_cli_reply -W \"" + joined(names) + " --json --help --version\"; return ;;\n"
         "    *) COMPREPLY=(); return ;;\n"
         "  esac\n"
         "  case \"$command $prev\" in\n" +
         valueCases +
         "    *)\n"
         "      if [[ $values == *\" $prev \"* ]]; then\n"
         "        COMPREPLY=()\n"
         "      elif [[ $cur != -* && -n $words ]]; then\n"
         "        _norvane_cli_reply -W \"$words\"\n"
         "      else\n"
         "        _norvane_cli_reply -W \"$options --json --help\"\n"
         "      fi ;;\n"
         "  esac\n"
         "}\n"
         "complete -F _norvane_cli norvane-cli\n";
}

}  // namespace norvane::cli
