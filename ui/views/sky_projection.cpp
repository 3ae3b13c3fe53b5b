#include "ui/views/sky_projection.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "ui/views/pixel_cast.h"

namespace norvane {

std::optional<Point> SkyProject(const SkyPoint& point, std::int32_t radius, std::int32_t cy, int swap,
                                const ViewMatrix& matrix) {
  // Written so that a NaN elevation is refused too.
  if (!(point.elevation >= 0.0 && point.elevation < kPi / 2)) return std::nullopt;
  const double r = radius - point.elevation * radius / (kPi / 2);
  const double u = -r * std::sin(point.azimuth);
  // Only the unswapped term is truncated.
  const double v = swap == 0 ? std::trunc(r * std::cos(point.azimuth)) : -r * std::cos(point.azimuth);
  const auto& m = matrix.m;
  Point p;
  p.x = TruncPixel(u * m[0][0] + v * m[1][0]) + radius;
  p.y = TruncPixel(u * m[0][1] + v * m[1][1]) + cy;
  return p;
}

}  // namespace norvane
