#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/command.h"

namespace norvane::cli {
namespace {

void printHelp(std::FILE* out) {
  std::fputs(
      "usage: norvane-cli [--json] SUBCOMMAND [OPTIONS]\n"
      "Runs the tracker's computations without a screen. Options take their value as\n"
      "the next argument; --json prints one JSON object per line.\n"
      "A --tle FILE may hold element lines, OMM CSV or OMM JSON.\n\nsubcommands:\n",
      out);
  for (const Command& c : commands()) std::fprintf(out, "  %s\n", c.usage.c_str());
}

const Command* findCommand(const std::string& name) {
  for (const Command& c : commands()) {
    if (c.name == name) return &c;
  }
  return nullptr;
}

bool contains(const std::vector<std::string>& list, const std::string& item) {
  return std::find(list.begin(), list.end(), item) != list.end();
}

// Splits argv into the subcommand's options; --json and --help go anywhere.
Args parse(int argc, char** argv, const Command*& command, bool& help) {
  Args args;
  command = nullptr;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--json") {
      args.json = true;
    } else if (word == "--help" || word == "-h") {
      help = true;
    } else if (word.rfind("--", 0) == 0) {
      if (command == nullptr) throw UsageError{"unknown option " + word};
      const std::string name = word.substr(2);
      if (contains(command->flagOptions, name)) {
        args.flags.insert(name);
      } else if (contains(command->valueOptions, name)) {
        if (i + 1 >= argc) throw UsageError{"option " + word + " needs a value"};
        args.values[name] = argv[++i];
      } else {
        throw UsageError{"unknown option " + word + " for " + command->name};
      }
    } else if (command == nullptr) {
      command = findCommand(word);
      if (command == nullptr) throw UsageError{"unknown subcommand " + word};
      args.command = word;
    } else {
      args.positional.push_back(word);
    }
  }
  return args;
}

}  // namespace

int run(int argc, char** argv) {
  const Command* command = nullptr;
  bool help = false;
  try {
    const Args args = parse(argc, argv, command, help);
    if (help) {
      if (command != nullptr) {
        std::printf("usage: norvane-cli [--json] %s\n", command->usage.c_str());
      } else {
        printHelp(stdout);
      }
      return 0;
    }
    if (command == nullptr) throw UsageError{"no subcommand given"};
    return command->run(args);
  } catch (const UsageError& e) {
    std::fprintf(stderr, "norvane-cli: %s\n", e.message.c_str());
    if (command != nullptr) std::fprintf(stderr, "usage: norvane-cli [--json] %s\n", command->usage.c_str());
    else std::fputs("try: norvane-cli --help\n", stderr);
    return 2;
  } catch (const InputError& e) {
    std::fprintf(stderr, "%s\n", e.message.c_str());
    return 1;
  }
}

}  // namespace norvane::cli

int main(int argc, char** argv) { return norvane::cli::run(argc, argv); }
