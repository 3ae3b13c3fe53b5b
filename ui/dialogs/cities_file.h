#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvane {

// A named observer place of the cities file.
struct City {
  std::string name;     // UTF-8, at most kCityNameMax bytes
  double latitude = 0;   // deg, north positive, -90..90
  double longitude = 0;  // deg, east positive, -180..180
  double altitude = 0;   // m above sea level, -500..9000
};

inline constexpr const char* kCitiesFileName = "Cities.loc";
inline constexpr std::size_t kCityNameMax = 48;
inline constexpr std::size_t kCityLineMax = 200;
inline constexpr std::size_t kCitiesMax = 2000;
inline constexpr std::size_t kCitiesFileMax = 1 << 20;

// Reads the places of a cities file. One place a line: name, latitude,
// longitude and altitude separated by tabs; blank lines and lines beginning
// with '#' are skipped, and so is any line that is too long, has a field
// missing or a number out of range. At most kCitiesMax places, in file order.
std::vector<City> ParseCities(std::string_view text);

// ParseCities over the first kCitiesFileMax bytes of a file; empty when it
// cannot be read.
std::vector<City> ReadCitiesFile(const std::string& path);

}  // namespace norvane
