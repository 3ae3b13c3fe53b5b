#pragma once
#include <array>

namespace norvane {

// Fixed Keplerian elements of one body, referred to the ecliptic.
struct PlanetElements {
  std::array<char, 16> name;  // blank-padded, zero-terminated
  double epoch;               // jd of the elements
  double inclination;         // rad
  double node;                // longitude of the ascending node, rad
  double perihelion;          // argument of perihelion, rad
  double semiMajorAxis;       // AU
  double dailyMotion;         // rad/day; 0 means: compute from the semi-major axis
  double eccentricity;
  double meanAnomaly;         // at the epoch, rad
  double obliquityEpoch;      // jd; read from the Earth's record only
  double magnitude;           // at 1 AU
  double semiDiameter;        // at 1 AU, arcseconds
};

inline constexpr int kPlanetCount = 9;

// The nine records in stored order: Mercury, Venus, Earth, Mars, Jupiter,
// Saturn, Uranus, Neptune, Pluto.
extern const std::array<PlanetElements, kPlanetCount> kPlanetTable;

// The record of a body index (0 Earth, 1 Mercury, 2 Venus, 3 Mars, 4 Jupiter,
// 5 Saturn, 6 Uranus, 7 Neptune, 8 Pluto); the index must be in 0..8.
const PlanetElements& PlanetRecord(int bodyIndex);

}  // namespace norvane
