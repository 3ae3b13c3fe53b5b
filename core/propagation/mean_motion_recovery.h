#pragma once

namespace norvane {

// The models' "original" mean motion and semi-major axis recovered from the
// element set's mean motion, with the epoch quantities computed on the way.
struct RecoveredOrbit {
  double cosio = 0;   // cos(inclination)
  double theta2 = 0;  // cos^2(inclination)
  double x3thm1 = 0;  // 3 cos^2(i) - 1
  double eosq = 0;    // e^2
  double betao2 = 0;  // 1 - e^2
  double betao = 0;   // sqrt(1 - e^2)
  double aodp = 0;    // er, semi-major axis
  double xnodp = 0;   // rad/min, mean motion
};

// xno in rad/min, xincl in rad. A mean motion of 0 gives non-finite values.
RecoveredOrbit recoverMeanMotion(double xno, double xincl, double eo);

}  // namespace norvane
