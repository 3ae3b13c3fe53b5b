#pragma once
#include <cstdint>

#include "core/astro/geodetic.h"
#include "core/propagation/state_vector.h"
#include "ui/surface/point.h"
#include "ui/views/view_world.h"

namespace norvane {

// A place below a body and where it lies on the map.
struct MapPoint {
  Geodetic place;  // lat, lon (rad), alt or distance (km)
  Point screen;
  StateVector position;  // km, inertial; satellites only
};

// Catalogue entry index at jd on the map. refresh 0 copies the entry and
// initialises its model first; 1 reuses the last initialisation.
MapPoint SatellitePoint(ViewWorld& world, int index, double jd, int refresh);

// The places below the Sun and the Moon at jd.
MapPoint SunPoint(const DrawingSurface& surface, double jd);
MapPoint MoonPoint(const DrawingSurface& surface, const Geodetic& observer, double jd);

// Paints the map view: night and day sides, Sun, observer, equator and prime
// meridian, Moon, the selected satellites, and for the current one its
// footprint, ground track and name; then presents the frame. A tap near a
// satellite makes it current.
void PaintMap(ViewWorld& world);

}  // namespace norvane
