#include "ui/dialogs/cities_file.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <optional>

namespace norvane {
namespace {

// Splits at tabs into exactly four fields.
bool splitFields(std::string_view line, std::array<std::string_view, 4>& fields) {
  std::size_t field = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= line.size(); ++i) {
    if (i < line.size() && line[i] != '\t') continue;
    if (field == fields.size()) return false;
    fields[field++] = line.substr(begin, i - begin);
    begin = i + 1;
  }
  return field == fields.size();
}

// A decimal number that fills the whole field and lies in [low, high].
std::optional<double> number(std::string_view field, double low, double high) {
  char buffer[32];
  if (field.empty() || field.size() >= sizeof buffer) return std::nullopt;
  for (const char c : field) {
    const bool allowed = (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
    if (!allowed) return std::nullopt;
  }
  field.copy(buffer, field.size());
  buffer[field.size()] = '\0';
  char* end = nullptr;
  const double value = std::strtod(buffer, &end);
  if (end != buffer + field.size() || !std::isfinite(value) || value < low || value > high) return std::nullopt;
  return value;
}

bool validName(std::string_view name) {
  if (name.empty() || name.size() > kCityNameMax) return false;
  for (const char c : name) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) return false;
  }
  return true;
}

std::optional<City> parseLine(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  if (line.empty() || line.front() == '#' || line.size() > kCityLineMax) return std::nullopt;
  std::array<std::string_view, 4> fields;
  if (!splitFields(line, fields) || !validName(fields[0])) return std::nullopt;
  const auto lat = number(fields[1], -90.0, 90.0);
  const auto lon = number(fields[2], -180.0, 180.0);
  const auto alt = number(fields[3], -500.0, 9000.0);
  if (!lat || !lon || !alt) return std::nullopt;
  return City{std::string(fields[0]), *lat, *lon, *alt};
}

}  // namespace

std::vector<City> ParseCities(std::string_view text) {
  std::vector<City> cities;
  std::size_t begin = 0;
  while (begin < text.size() && cities.size() < kCitiesMax) {
    std::size_t end = text.find('\n', begin);
    if (end == std::string_view::npos) end = text.size();
    if (auto city = parseLine(text.substr(begin, end - begin))) cities.push_back(std::move(*city));
    begin = end + 1;
  }
  return cities;
}

std::vector<City> ReadCitiesFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return {};
  std::string text(kCitiesFileMax, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return ParseCities(text);
}

}  // namespace norvane
