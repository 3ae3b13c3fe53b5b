#pragma once
#include <vector>

#include "core/astro/geodetic.h"
#include "core/elements/satellite.h"
#include "core/propagation/propagator.h"
#include "core/radio/rotator.h"

namespace norvane {

// A satellite's direction and distance seen from the observer at one moment.
struct SkyPosition {
  double azimuthDeg = 0;    // [0, 360)
  double elevationDeg = 0;  // deg, geometric (no refraction)
  double rangeKm = 0;       // km
  double rangeRateKmS = 0;  // km/s, positive when receding
};

// Direction of the propagator's satellite at jd (UTC days) for an observer
// (radians and km).
SkyPosition SkyPositionAt(Propagator& propagator, const Geodetic& observer, double jd);

// One pass sampled from AOS to LOS.
struct PassTrack {
  bool found = false;
  bool neverSets = false;  // above the minimum elevation for the whole search: samples cover the search only
  double aosJd = 0;        // UTC days, to the second
  double losJd = 0;
  std::vector<TrackSample> samples;  // every stepSeconds from AOS to LOS, both included
};

struct PassSearch {
  double minElevationDeg = 0;  // deg
  double searchDays = 1.0;     // how far ahead to look for AOS
  double stepSeconds = 10.0;   // spacing of the samples
};

// The pass in progress at startJd, or else the next one to begin within the
// search; found is false when there is none.
PassTrack SampleNextPass(Propagator& propagator, const Geodetic& observer, double startJd, const PassSearch& search);

}  // namespace norvane
