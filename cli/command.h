#pragma once
#include <span>
#include <string>
#include <vector>

#include "cli/args.h"

namespace norvane::cli {

// One subcommand of norvane-cli: its options and the function that runs it.
struct Command {
  std::string name;
  std::string usage;                       // shown by --help
  std::vector<std::string> valueOptions;   // "--name value"
  std::vector<std::string> flagOptions;    // "--name"
  int (*run)(const Args& args) = nullptr;  // exit status; may throw UsageError, InputError
  int order = 100;                         // place in the --help list
};

// Every registered subcommand, sorted by order then name.
std::span<const Command> commands();

// Adds a subcommand; used through NORVANE_CLI_COMMAND in each cmd_*.cpp.
bool registerCommand(Command command);

}  // namespace norvane::cli

// Registers the Command returned by factory() when the program starts.
#define NORVANE_CLI_COMMAND(factory) \
  static const bool norvane_cli_registered_##factory = ::norvane::cli::registerCommand(factory())
