#pragma once
#include <cmath>

#include "core/astro/numeric.h"
#include "core/propagation/kepler.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/state_vector.h"

namespace norvane::model {

// Epoch quantities the short-period terms of SGP8 and SDP8 use.
struct Sgp8ShortPeriod {
  double cosi = 0, sini = 0;
  double theta2 = 0;           // cos^2 i
  double unm5th = 0;           // 1 - 5 cos^2 i
  double unmth2 = 0;           // 1 - cos^2 i
  double tthmun = 0;           // 3 cos^2 i - 1
  double sinio2 = 0, cosio2 = 0;  // sin and cos of half the inclination
};

// Mean elements at one time for the SGP8 family.
struct Sgp8MeanElements {
  double xn = 0;      // rad/min, mean motion
  double em = 0;      // eccentricity
  double xmam = 0;    // rad, mean anomaly in [0, 2pi)
  double omgasm = 0;  // rad, argument of perigee
  double xnodes = 0;  // rad, node
  double sini2 = 0;   // sin of half the inclination used for the plane's orientation
};

// Kepler's equation, the short-period terms and the orientation shared by
// SGP8 and SDP8: position in earth radii, velocity in earth radii per minute.
inline void sgp8Output(const Sgp8MeanElements& m, const Sgp8ShortPeriod& k, StateVector& position,
                       StateVector& velocity) {
  const KeplerAnomaly ea = solveKeplerAnomaly(m.xmam, m.em);

  // Short-period preliminaries.
  const double am = std::pow(kXke / m.xn, kTwoThirds);
  const double beta2m = 1.0 - m.em * m.em;
  const double sinos = std::sin(m.omgasm);
  const double cosos = std::cos(m.omgasm);
  const double axnm = m.em * cosos;
  const double aynm = m.em * sinos;
  const double pm = am * beta2m;
  const double g1 = 1.0 / pm;
  const double g2 = kCk2x0p5 * g1;
  const double g3 = g2 * g1;
  const double beta = std::sqrt(beta2m);
  const double g4 = 0.25 * kA3ovk2 * k.sini;
  const double g5 = 0.25 * kA3ovk2 * g1;
  const double snf = beta * ea.sinE * ea.zc5;
  const double csf = (ea.cosE - m.em) * ea.zc5;
  const double fm = AcTan(snf, csf);

  // True-anomaly quantities.
  const double snfg = snf * cosos + csf * sinos;
  const double csfg = csf * cosos - snf * sinos;
  const double sn2f2g = 2.0 * snfg * csfg;
  const double cs2f2g = 2.0 * csfg * csfg - 1.0;
  const double ecosf = m.em * csf;
  const double g10 = fm - m.xmam + m.em * snf;
  const double rm = pm / (1.0 + ecosf);
  const double aovr = am / rm;
  const double g13 = m.xn * aovr;
  const double g14 = -g13 * aovr;
  const double dr = g2 * (k.unmth2 * cs2f2g - 3.0 * k.tthmun) - g4 * snfg;
  const double diwc = 3.0 * g3 * k.sini * cs2f2g - g5 * aynm;
  const double di = diwc * k.cosi;

  // Short-period periodics.
  const double sni2du = k.sinio2 * (g3 * (0.5 * (1.0 - 7.0 * k.theta2) * sn2f2g - 3.0 * k.unm5th * g10) -
                                    g5 * k.sini * csfg * (2.0 + ecosf)) -
                        0.5 * g5 * k.theta2 * axnm / k.cosio2;
  const double xlamb = fm + m.omgasm + m.xnodes +
                       g3 * (0.5 * (1.0 + 6.0 * k.cosi - 7.0 * k.theta2) * sn2f2g -
                             3.0 * (k.unm5th + 2.0 * k.cosi) * g10) +
                       g5 * k.sini * (k.cosi * axnm / (1.0 + k.cosi) - (2.0 + ecosf) * csfg);
  const double y4 = m.sini2 * snfg + csfg * sni2du + 0.5 * snfg * k.cosio2 * di;
  const double y5 = m.sini2 * csfg - snfg * sni2du + 0.5 * csfg * k.cosio2 * di;
  const double r = rm + dr;
  const double rdot = m.xn * am * m.em * snf / beta + g14 * (2.0 * g2 * k.unmth2 * sn2f2g + g4 * csfg);
  const double rvdot = m.xn * am * am * beta / rm + g14 * dr + am * g13 * k.sini * diwc;

  // Orientation: xlamb is the longitude in the orbit, y4 and y5 the
  // half-angle inclination components.
  const double snlamb = std::sin(xlamb);
  const double cslamb = std::cos(xlamb);
  const double ov1 = 2.0 * (y5 * snlamb - y4 * cslamb);
  const double ux = y4 * ov1 + cslamb;
  const double vx = y5 * ov1 - snlamb;
  const double ov2 = 2.0 * (y5 * cslamb + y4 * snlamb);
  const double uy = -y4 * ov2 + snlamb;
  const double vy = -y5 * ov2 + cslamb;
  const double ov3 = 2.0 * std::sqrt(1.0 - y4 * y4 - y5 * y5);
  const double uz = y4 * ov3;
  const double vz = y5 * ov3;

  position.x = r * ux;
  position.y = r * uy;
  position.z = r * uz;
  velocity.x = rdot * ux + rvdot * vx;
  velocity.y = rdot * uy + rvdot * vy;
  velocity.z = rdot * uz + rvdot * vz;
}

}  // namespace norvane::model
