#include "core/analysis/satellite_shape.h"

#include <array>

namespace norvane {
namespace {

constexpr std::array<SatelliteShape, kSatelliteShapeCount> kShapes{{
#include "data/satellite_shapes.inc"
}};

}  // namespace

std::span<const SatelliteShape> SatelliteShapeTable() { return kShapes; }

double StandardMagnitude(int catnr) {
  // A plain walk from the first record, as every lookup of the table does.
  for (const SatelliteShape& shape : kShapes) {
    if (shape.catnr == catnr) return shape.standardMagnitude;
  }
  return kUnknownMagnitude;
}

}  // namespace norvane
