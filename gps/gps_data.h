#pragma once
#include <array>
#include <cstdint>

namespace norvane {

// Room in the satellites-in-view tables: GSV messages 1 to 4 fill slots 0 to 15,
// readers look at the first 12.
inline constexpr int kGpsViewSlots = 16;
inline constexpr int kGpsUsedSlots = 12;

// What the receiver last said. Each decoder overwrites only its own fields;
// nothing is cleared between sentences.
struct GpsData {
  std::int32_t valid = 0;              // 1: last RMC status not "V" or last GLL status "A"
  double latitude = 0.0;               // degrees, north positive
  double longitude = 0.0;              // degrees, east positive
  double altitude = 0.0;               // metres above mean sea level
  double speed = 0.0;                  // km/h
  double magneticVariation = 0.0;      // degrees, negative west
  std::int16_t hour = 0, minute = 0, second = 0, hundredths = 0;  // UTC
  std::int32_t day = 0, month = 0, year = 0;                      // UTC, year 20yy
  double course = 0.0;                 // degrees over ground
  double course2 = 0.0;                // second VTG field read as a number
  std::int16_t satellitesInView = 0;
  std::int16_t satellitesInUse = 0;
  std::int16_t fixQuality = 0;         // upper half of the satellites-used value
  double pdop = 0.0, hdop = 0.0, vdop = 0.0;
  std::int32_t fixMode = 0;            // 1 no fix, 2 two-dimensional, 3 three-dimensional
  std::array<std::int32_t, kGpsUsedSlots> usedPrn{};
  std::array<std::int16_t, kGpsViewSlots> snr{};      // dB-Hz
  std::array<double, kGpsViewSlots> azimuth{};        // radians
  std::array<double, kGpsViewSlots> elevation{};      // radians
  std::array<std::int16_t, kGpsViewSlots> prn{};
  std::uint32_t timeStamp = 0;         // tick count (ms) when the last time field was decoded

  bool operator==(const GpsData&) const = default;
};

}  // namespace norvane
