#pragma once
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace norvane::cli {

// Options of one subcommand: "--name value" pairs and bare flags.
struct Args {
  std::string command;
  std::vector<std::string> positional;
  std::map<std::string, std::string> values;
  std::set<std::string> flags;
  bool json = false;

  bool has(const std::string& name) const { return values.count(name) != 0; }
  bool flag(const std::string& name) const { return flags.count(name) != 0; }
  std::optional<std::string> value(const std::string& name) const;
};

// Thrown for a command line that does not fit the subcommand (exit status 2).
struct UsageError {
  std::string message;
};
// Thrown for a value that cannot be used (exit status 1).
struct InputError {
  std::string message;
};

// The value of a required option, or a UsageError naming it.
std::string required(const Args& args, const std::string& name);
// Numbers of option values; anything but a whole number is an InputError.
double toDouble(const std::string& name, const std::string& text);
int toInt(const std::string& name, const std::string& text);
double requiredDouble(const Args& args, const std::string& name);
int requiredInt(const Args& args, const std::string& name);

}  // namespace norvane::cli
