#pragma once
#include <string_view>

namespace norvane::cli {

// What each subcommand and option of norvane-cli does, in words. The command
// table says which options exist; these texts explain them for --help, the
// manual page and the shell completion alike. "" when there is no text.
std::string_view CommandSummary(std::string_view command);
std::string_view OptionText(std::string_view command, std::string_view option);

}  // namespace norvane::cli
