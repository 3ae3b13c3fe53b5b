#include "download/categories.h"

namespace norvane {

namespace {
constexpr std::array<Category, kCategoryCount> kCategories = {{
    {"Last 30 Days' Launches", "tle-new"},
    {"International Space Station", "stations"},
    {"100 (or so) Brightest", "visual"},
    {"Weather", "weather"},
    {"NOAA", "noaa"},
    {"GOES", "goes"},
    {"Earth Resources", "resources"},
    {"Search & Rescue (SARSAT)", "sarsat"},
    {"Disaster Monitoring", "dmc"},
    {"Tracking and Data Relay Satellite System (TDRSS)", "tdrss"},
    {"Communications Geostationary", "geo"},
    {"Intelsat", "intelsat"},
    {"Gorizont", "gorizont"},
    {"Raduga", "raduga"},
    {"Molniya", "molniya"},
    {"Iridium", "iridium"},
    {"Orbcomm", "orbcomm"},
    {"Globalstar", "globalstar"},
    {"Amateur Radio", "amateur"},
    {"Experimental Communications", "x-comm"},
    {"Other Communications", "other-comm"},
    {"GPS Operational", "gps-ops"},
    {"Glonass Operational", "glo-ops"},
    {"Galileo", "galileo"},
    {"WAAS/EGNOS/MSAS", "sbas"},
    {"Navy Navigation(NNSS)", "nnss"},
    {"Russian LEO Navigation", "musson"},
    {"Space & Earth Science", "science"},
    {"Geodetic", "geodetic"},
    {"Engineering", "engineering"},
    {"Education", "education"},
    {"Military", "military"},
    {"Radar Calibration", "radar"},
    {"CubeSats", "cubesats"},
    {"Other", "other"},
}};
}  // namespace

const std::array<Category, kCategoryCount>& categories() { return kCategories; }

int findCategory(std::string_view name) {
  for (int row = 0; row < kCategoryCount; ++row) {
    const Category& c = kCategories[static_cast<std::size_t>(row)];
    if (c.fileName == name || c.label == name) return row;
  }
  return -1;
}

}  // namespace norvane
