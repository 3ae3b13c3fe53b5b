#pragma once
#include <cmath>

#include "core/astro/numeric.h"
#include "core/propagation/kepler.h"
#include "core/propagation/model_constants.h"
#include "core/propagation/state_vector.h"

namespace norvane::model {

// Epoch quantities the short-period terms of SGP4 and SDP4 use.
struct ShortPeriodCoefficients {
  double cosio = 0;
  double sinio = 0;
  double x3thm1 = 0;  // 3 cos^2 i - 1
  double x1mth2 = 0;  // 1 - cos^2 i
  double x7thm1 = 0;  // 7 cos^2 i - 1
  double xlcof = 0;
  double aycof = 0;
};

// The secularly and lunar-solar updated mean elements at one time.
struct MeanElements {
  double a = 0;      // er, semi-major axis
  double e = 0;      // eccentricity
  double omega = 0;  // rad, argument of perigee
  double xnode = 0;  // rad, node
  double xl = 0;     // rad, mean longitude M + omega + node
  double xinc = 0;   // rad, inclination the short-period terms start from
};

// The long-period, Kepler and short-period steps shared by SGP4 and SDP4:
// position in earth radii and velocity in earth radii per minute (magnitudes
// left for the caller).
inline void lyddaneOutput(const MeanElements& m, const ShortPeriodCoefficients& k,
                          StateVector& position, StateVector& velocity) {
  const double beta2 = 1.0 - m.e * m.e;
  const double xn = kXke / (m.a * std::sqrt(m.a));

  // Long-period periodics in the Lyddane variables e cos(omega), e sin(omega).
  const double axn = m.e * std::cos(m.omega);
  const double tlp = 1.0 / (m.a * beta2);
  const double xll = tlp * k.xlcof * axn;
  const double aynl = tlp * k.aycof;
  const double xlt = m.xl + xll;
  const double ayn = m.e * std::sin(m.omega) + aynl;

  const double capu = FMod2p(xlt - m.xnode);
  const KeplerSolution ep = solveKeplerLyddane(capu, axn, ayn);

  // Short-period preliminaries.
  const double ecose = axn * ep.cosE + ayn * ep.sinE;
  const double esine = axn * ep.sinE - ayn * ep.cosE;
  const double elsq = axn * axn + ayn * ayn;
  const double pl = m.a * (1.0 - elsq);
  const double r = m.a * (1.0 - ecose);
  const double rdot = kXke * std::sqrt(m.a) * esine / r;
  const double rfdot = kXke * std::sqrt(pl) / r;
  const double betal = std::sqrt(1.0 - elsq);
  const double aOverR = m.a / r;
  const double esineTerm = esine / (1.0 + betal);
  const double cosu = aOverR * (ep.cosE - axn + ayn * esineTerm);
  const double sinu = aOverR * (ep.sinE - ayn - axn * esineTerm);
  const double u = AcTan(sinu, cosu);
  const double sin2u = 2.0 * sinu * cosu;
  const double cos2u = 2.0 * cosu * cosu - 1.0;
  const double sp1 = kCk2 / pl;
  const double sp2 = sp1 / pl;

  // Short-period periodics.
  const double rk = r * (1.0 - 1.5 * sp2 * betal * k.x3thm1) + 0.5 * sp1 * k.x1mth2 * cos2u;
  const double uk = u - 0.25 * sp2 * k.x7thm1 * sin2u;
  const double xnodek = m.xnode + 1.5 * sp2 * k.cosio * sin2u;
  const double xinck = m.xinc + 1.5 * sp2 * k.cosio * k.sinio * cos2u;
  const double rdotk = rdot - xn * sp1 * k.x1mth2 * sin2u;
  const double rfdotk = rfdot + xn * sp1 * (k.x1mth2 * cos2u + 1.5 * k.x3thm1);

  // Unit vectors to the satellite (u) and 90 degrees ahead of it in the plane (v).
  const double sinuk = std::sin(uk);
  const double cosuk = std::cos(uk);
  const double sinik = std::sin(xinck);
  const double cosik = std::cos(xinck);
  const double sinnok = std::sin(xnodek);
  const double cosnok = std::cos(xnodek);
  const double xmx = -sinnok * cosik;
  const double xmy = cosnok * cosik;
  const double ux = xmx * sinuk + cosnok * cosuk;
  const double uy = xmy * sinuk + sinnok * cosuk;
  const double uz = sinik * sinuk;
  const double vx = xmx * cosuk - cosnok * sinuk;
  const double vy = xmy * cosuk - sinnok * sinuk;
  const double vz = sinik * cosuk;

  position.x = rk * ux;
  position.y = rk * uy;
  position.z = rk * uz;
  velocity.x = rdotk * ux + rfdotk * vx;
  velocity.y = rdotk * uy + rfdotk * vy;
  velocity.z = rdotk * uz + rfdotk * vz;
}

}  // namespace norvane::model
