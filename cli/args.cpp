#include "cli/args.h"

#include <cerrno>
#include <cstdlib>

namespace norvane::cli {

std::optional<std::string> Args::value(const std::string& name) const {
  const auto it = values.find(name);
  if (it == values.end()) return std::nullopt;
  return it->second;
}

std::string required(const Args& args, const std::string& name) {
  const auto v = args.value(name);
  if (!v) throw UsageError{"missing option --" + name};
  return *v;
}

double toDouble(const std::string& name, const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const double v = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || errno == ERANGE) {
    throw InputError{"--" + name + ": not a number: " + text};
  }
  return v;
}

int toInt(const std::string& name, const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno == ERANGE || v < -2147483647L - 1 || v > 2147483647L) {
    throw InputError{"--" + name + ": not a whole number: " + text};
  }
  return static_cast<int>(v);
}

double requiredDouble(const Args& args, const std::string& name) {
  return toDouble(name, required(args, name));
}

int requiredInt(const Args& args, const std::string& name) {
  return toInt(name, required(args, name));
}

}  // namespace norvane::cli
