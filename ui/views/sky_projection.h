#pragma once
#include <cstdint>
#include <optional>

#include "ui/surface/point.h"
#include "ui/views/view_matrix.h"

namespace norvane {

// A direction in the observer's sky.
struct SkyPoint {
  double azimuth = 0.0;    // rad from north through east
  double elevation = 0.0;  // rad
};

// Screen point of a sky point on the polar plot of horizon radius R (pixels)
// centred on (R, cy), turned by the matrix's upper-left block; swap puts north
// at the top. Nothing below the horizon or at and past the zenith.
std::optional<Point> SkyProject(const SkyPoint& point, std::int32_t radius, std::int32_t cy, int swap,
                                const ViewMatrix& matrix);

}  // namespace norvane
