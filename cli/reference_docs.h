#pragma once
#include <string>
#include <string_view>

namespace norvane::cli {

// The manual pages and the shell completion, made from the programs' own
// command tables and help texts so that they always match --help.

// Where the installed data lives, for the FILES sections (e.g. "/usr/share/norvane").
struct DocsContext {
  std::string version;
  std::string dataFolder;
};

std::string cliManualPage(const DocsContext& context);     // norvane-cli(1), roff
std::string windowManualPage(const DocsContext& context);  // norvane(1), roff
std::string cliBashCompletion();                           // for bash-completion's completions folder

// Text for roff: backslashes doubled, a leading dot or quote made harmless.
std::string roffText(std::string_view text);
// Code-like text for roff (options, commands): also every '-' a minus sign.
std::string roffCode(std::string_view text);

}  // namespace norvane::cli
