#pragma once
#include <cstdio>
#include <vector>

#include "cli/command.h"
#include "core/text/usage_line.h"

namespace norvane::cli {

// norvane-cli --help: the synopsis, every subcommand with its summary, the global options.
void printProgramHelp(std::FILE* out);
// norvane-cli SUBCOMMAND --help: the usage, the summary and each option explained.
void printCommandHelp(const Command& command, std::FILE* out);

// The options of a subcommand in the order its usage line names them, with
// the usage's placeholders; options the table has but the usage lacks follow.
std::vector<UsageOption> commandOptions(const Command& command);

}  // namespace norvane::cli
