#pragma once
#include <cstddef>
#include <cstdio>
#include <string>

namespace norvane {

// printf-style text of any length, for the program's own format strings
// ("%3.1f", "%2.2d") so that every number reads digit for digit as designed.
template <typename... Args>
std::string format(const char* pattern, Args... args) {
  const int n = std::snprintf(nullptr, 0, pattern, args...);
  if (n <= 0) return {};
  std::string text(static_cast<std::size_t>(n) + 1, '\0');
  std::snprintf(text.data(), text.size(), pattern, args...);
  text.resize(static_cast<std::size_t>(n));
  return text;
}

}  // namespace norvane
