#pragma once
#include <cmath>

#include "core/propagation/model_constants.h"

namespace norvane::model {

// Sine and cosine of the estimate Kepler's equation settled on.
struct KeplerSolution {
  double sinE = 0;
  double cosE = 0;
};

// Solves U = E - axn sin E + ayn cos E for the eccentric longitude E by Newton
// passes from E = U. A pass whose correction is at most the tolerance ends the
// search and its starting estimate is kept; after the last pass without
// convergence the last improved estimate is used.
inline KeplerSolution solveKeplerLyddane(double capu, double axn, double ayn) {
  double e = capu;
  for (int pass = 0; pass < kKeplerPasses; ++pass) {
    const double s = std::sin(e);
    const double c = std::cos(e);
    const double next = e + (capu - e + axn * s - ayn * c) / (1.0 - axn * c - ayn * s);
    if (std::fabs(next - e) <= kKeplerTolerance) return {s, c};
    e = next;
  }
  return {std::sin(e), std::cos(e)};
}

// Eccentric anomaly for SGP8 and SDP8: sine, cosine and 1 / (1 - e cos E).
struct KeplerAnomaly {
  double sinE = 0;
  double cosE = 0;
  double zc5 = 0;
};

// Solves M = E - e sin E by Newton passes from the second-order start
// M + e sin M (1 + e cos M), with the same stopping rule as above.
inline KeplerAnomaly solveKeplerAnomaly(double xmam, double em) {
  double e = xmam + em * std::sin(xmam) * (1.0 + em * std::cos(xmam));
  for (int pass = 0; pass < kKeplerPasses; ++pass) {
    const double s = std::sin(e);
    const double c = std::cos(e);
    const double zc5 = 1.0 / (1.0 - em * c);
    const double next = e + (xmam + em * s - e) * zc5;
    if (std::fabs(next - e) <= kKeplerTolerance) return {s, c, zc5};
    e = next;
  }
  const double c = std::cos(e);
  return {std::sin(e), c, 1.0 / (1.0 - em * c)};
}

}  // namespace norvane::model
