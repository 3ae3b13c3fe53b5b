#pragma once
#include <span>

namespace norvane {

// One record of the built-in size table.
struct SatelliteShape {
  double catnr;               // catalogue number; the table is sorted ascending on it
  double length;              // m; a sphere's radius
  double width;               // m; a cylinder's radius, 0 for a sphere
  double depth;               // m; 0 for a cylinder or sphere
  double standardMagnitude;   // intrinsic brightness the magnitude formula starts from
  double radarCrossSection;   // m^2; not used by any computation
};

inline constexpr int kSatelliteShapeCount = 1778;
// Magnitude of a satellite that is not in the table, or not lit.
inline constexpr double kUnknownMagnitude = 100.0;

// The 1778 records, catalogue 5 first and 90038 last.
std::span<const SatelliteShape> SatelliteShapeTable();

// The standard magnitude of the first record with this catalogue number, or
// 100.0 when there is none.
double StandardMagnitude(int catnr);

}  // namespace norvane
