#pragma once
#include "core/astro/star_catalogue.h"

namespace norvane {

// The observer's latitude as the star placement uses it.
struct StarObserver {
  double sinLat = 0;
  double cosLat = 0;
};

// A star's place in the observer's sky.
struct StarPoint {
  double azimuth = 0;   // rad from north through east; not reduced, may exceed 2pi
  double altitude = 0;  // rad
};

// Places a star for the local sidereal angle theta (given as its sine and
// cosine). Returns 1 when the star is above the horizon; with 0 only the
// altitude is written.
int StarHorizontal(double sinTheta, double cosTheta, const StarRecord& star, const StarObserver& observer,
                   StarPoint& out);

// Number of leading catalogue records to walk for a magnitude limit (0-5).
int StarScanCount(int limit);

}  // namespace norvane
