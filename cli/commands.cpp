#include "cli/command.h"

namespace norvane::cli {

std::span<const Command> commands() {
  static const std::vector<Command> table = {
      timeCommand(),
      elementsCommand(),
  };
  return table;
}

}  // namespace norvane::cli
