#include "ui/views/map_projection.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "ui/views/pixel_cast.h"

namespace norvane {

namespace {

constexpr double kEarthRadius = 6378.137;     // km
constexpr double kEarthDiameter = 12756.33;   // km, as the circle's radius formula has it
constexpr double kRadiansPerDegree = kPi / 180.0;

// Longitude of the circle point, before it is brought into [0, 2 pi].
double CircleLongitude(const Geodetic& centre, double azimuthDeg, double d, double phi) {
  const double lat = centre.lat;
  if ((azimuthDeg == 0.0 && d > kPi / 2 - lat) || (azimuthDeg == 180.0 && d > kPi / 2 + lat)) {
    return centre.lon + kPi;  // the circle encloses a pole
  }
  const double a = std::cos(d) - std::sin(lat) * std::sin(phi);
  const double b = std::cos(lat) * std::cos(phi);
  if (std::fabs(a / b) > 1.0) return centre.lon;
  double delta = 0.0;
  if (a != 0.0 && b != 0.0) {
    // The half turn added for a negative b is kept as the tracker draws it.
    delta = b > 0.0 ? std::acos(a / b) : kPi + std::acos(a / b);
  }
  return 180.0 - azimuthDeg >= 0.0 ? centre.lon - delta : centre.lon + delta;
}

}  // namespace

Point MapProject(const Geodetic& place, std::int32_t width, std::int32_t height) {
  double lon = place.lon;
  if (lon > kPi) lon -= kTwoPi;
  Point p;
  p.x = TruncPixel(width * 0.5 + place.lat * width / kPi);
  p.y = TruncPixel(height * 0.5 + lon * height / kTwoPi);
  return p;
}

Point CirclePoint(const Geodetic& centre, double azimuthDeg, std::int32_t width, std::int32_t height) {
  const double d = 0.5 * kEarthDiameter * std::acos(kEarthRadius / (kEarthRadius + centre.alt)) / kEarthRadius;
  const double az = azimuthDeg * kRadiansPerDegree;
  Geodetic point;
  point.lat = std::asin(std::sin(centre.lat) * std::cos(d) + std::cos(centre.lat) * std::sin(d) * std::cos(az));
  point.lon = CircleLongitude(centre, azimuthDeg, d, point.lat);
  if (point.lon < 0.0) point.lon += kTwoPi;
  if (point.lon > kTwoPi) point.lon -= kTwoPi;
  return MapProject(point, width, height);
}

}  // namespace norvane
