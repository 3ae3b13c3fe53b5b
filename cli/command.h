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
};

// Every subcommand, in the order --help lists them.
std::span<const Command> commands();

Command timeCommand();
Command elementsCommand();

}  // namespace norvane::cli
