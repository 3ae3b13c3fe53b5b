#include "gps/device_list.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace norvane {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 5> kPrefixes = {"ttyUSB", "ttyACM", "ttyS", "ttyAMA", "rfcomm"};

// A prefix of kPrefixes followed by digits only.
bool IsSerialName(std::string_view name) {
  for (std::string_view prefix : kPrefixes) {
    if (name.size() > prefix.size() && name.substr(0, prefix.size()) == prefix &&
        name.find_first_not_of("0123456789", prefix.size()) == std::string_view::npos) {
      return true;
    }
  }
  return false;
}

// The run of digits of text from at on, without leading zeros; at moves past it.
std::string_view DigitRun(std::string_view text, std::size_t& at) {
  std::size_t end = text.find_first_not_of("0123456789", at);
  if (end == std::string_view::npos) end = text.size();
  std::string_view run = text.substr(at, end - at);
  while (run.size() > 1 && run.front() == '0') run.remove_prefix(1);
  at = end;
  return run;
}

// Compares runs of digits by their value, everything else byte by byte.
bool NaturalLess(const std::string& a, const std::string& b) {
  auto digit = [](char c) { return c >= '0' && c <= '9'; };
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (digit(a[i]) && digit(b[j])) {
      const std::string_view x = DigitRun(a, i);
      const std::string_view y = DigitRun(b, j);
      if (x.size() != y.size()) return x.size() < y.size();
      if (x != y) return x < y;
    } else if (a[i] != b[j]) {
      return a[i] < b[j];
    } else {
      ++i, ++j;
    }
  }
  return a.size() - i < b.size() - j;
}

}  // namespace

std::vector<std::string> ListGpsDevices(const std::string& folder) {
  std::vector<std::string> devices;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (IsSerialName(name)) devices.push_back(it->path().string());
  }
  std::vector<std::string> stable;
  for (fs::directory_iterator it(fs::path(folder) / "serial" / "by-id", error), end; !error && it != end;
       it.increment(error)) {
    stable.push_back(it->path().string());
  }
  std::sort(devices.begin(), devices.end(), NaturalLess);
  std::sort(stable.begin(), stable.end(), NaturalLess);
  devices.insert(devices.end(), stable.begin(), stable.end());
  return devices;
}

}  // namespace norvane
