#pragma once
#include <cstdint>

#include "core/astro/geodetic.h"
#include "ui/surface/point.h"

namespace norvane {

// Screen point of a place on the landscape map: latitude along x (north to
// the right), longitude along y (east downward); a longitude above pi is
// taken 2 pi lower first.
Point MapProject(const Geodetic& place, std::int32_t width, std::int32_t height);

// The point at azimuth (degrees) on the horizon circle of a body above the
// centre place (its alt the body's height, km), projected with MapProject.
Point CirclePoint(const Geodetic& centre, double azimuthDeg, std::int32_t width, std::int32_t height);

}  // namespace norvane
