#include <algorithm>

#include "cli/command.h"

namespace norvane::cli {

namespace {
std::vector<Command>& table() {
  static std::vector<Command> commands;
  return commands;
}
}  // namespace

bool registerCommand(Command command) {
  auto& t = table();
  t.push_back(std::move(command));
  std::sort(t.begin(), t.end(), [](const Command& a, const Command& b) {
    return a.order != b.order ? a.order < b.order : a.name < b.name;
  });
  return true;
}

std::span<const Command> commands() { return table(); }

}  // namespace norvane::cli
