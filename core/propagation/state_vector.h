#pragma once

namespace norvane {

// A vector of the inertial (true equator, mean equinox) frame with its length:
// positions in km, velocities in km/s.
struct StateVector {
  double x = 0;
  double y = 0;
  double z = 0;
  double w = 0;  // magnitude
};

}  // namespace norvane
