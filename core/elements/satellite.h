#pragma once
#include <array>
#include <cstdint>

namespace norvane {

// One two-line element set in the units of the file: degrees, revolutions per
// day, the epoch as YYDDD.dddddddd (two-digit year * 1000 + day of year).
struct ElementSet {
  double epoch = 0;   // YYDDD.dddddddd
  double xndt2o = 0;  // rev/day^2, first derivative / 2 (read without its sign)
  double xndd6o = 0;  // rev/day^3, second derivative / 6 (never read, stays 0)
  double bstar = 0;   // 1/earth radii, drag term (read without its sign)
  double xincl = 0;   // deg
  double xnodeo = 0;  // deg, right ascension of the ascending node
  double eo = 0;      // eccentricity
  double omegao = 0;  // deg, argument of perigee
  double xmo = 0;     // deg, mean anomaly (single-precision digits)
  double xno = 0;     // rev/day, mean motion
  std::int32_t catnr = 0;   // catalogue number; 0 marks an empty entry
  std::int32_t elset = 0;   // element set number field as read
  std::int32_t revnum = 0;  // ephemeris type digit followed by the element number
};

inline constexpr int kSatelliteNameSize = 25;

// A catalogue entry: the element set and the name (24 characters and a zero).
struct Satellite : ElementSet {
  std::array<char, kSatelliteNameSize> name{};
};

}  // namespace norvane
