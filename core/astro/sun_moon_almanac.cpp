#include "core/astro/sun_moon_almanac.h"

#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {
namespace {

// Constants of this theory, referred to 1980 January 0.0.
constexpr double kEpoch = 2444238.5;                        // jd
constexpr double kEclipticLongitudeAtEpoch = 4.866563337991311;  // rad
constexpr double kPerigeeLongitude = 4.932237686642782;     // rad
constexpr double kEccentricity = 0.016718;
constexpr double kMoonMeanLongitudeAtEpoch = 1.1340357798110452;  // rad
constexpr double kMoonPerigeeAtEpoch = 6.097884800052778;         // rad
constexpr double kMoonEccentricity = 0.0549;

double eccentricAnomaly(double meanAnomaly) {
  double e = meanAnomaly;
  for (int i = 0; i < 100; ++i) {  // Newton's method converges in a few steps; the cap only bounds bad input
    const double delta = e - kEccentricity * std::sin(e) - meanAnomaly;
    e -= delta / (1.0 - kEccentricity * std::cos(e));
    if (!(std::fabs(delta) > 1e-6)) break;
  }
  return e;
}

}  // namespace

double SunMoonAlmanac(double jd, double& phase, double& age, double& moonDistance, double& moonDiameter,
                      double& sunDistance, double& sunDiameter) {
  const double k = (jd - kEpoch) * 0.0174532925199433;
  const double n = FMod2p(0.9856473320990837 * k);
  const double sunAnomaly = FMod2p(n + kEclipticLongitudeAtEpoch - kPerigeeLongitude);
  const double e = eccentricAnomaly(sunAnomaly);
  const double nu = 2.0 * std::atan(std::sqrt(1.0340044870138985) * std::tan(e / 2.0));
  const double sunLongitude = FMod2p(nu + kPerigeeLongitude);
  const double f = (1.0 + kEccentricity * std::cos(nu)) / 0.999720508476;
  sunDistance = 1.495985e8 / f;
  sunDiameter = 0.533128 * f;

  const double ml = FMod2p(13.1763966 * k + kMoonMeanLongitudeAtEpoch);
  const double mm = FMod2p(ml - 0.1114041 * k - kMoonPerigeeAtEpoch);
  // The Moon's node and ecliptic coordinates are left out: nothing here reports them.
  const double ev = 0.022233749341155767 * std::sin(2.0 * (ml - sunLongitude) - mm);
  const double ae = 0.003242821750205465 * std::sin(sunAnomaly);
  const double a3 = 0.006457718232379021 * std::sin(sunAnomaly);
  const double mmP = mm + ev - ae - a3;
  const double mEc = 0.10975677534091542 * std::sin(mmP);
  const double a4 = 0.003735004599267866 * std::sin(2.0 * mmP);
  const double lP = ml + ev + mEc - ae + a4;
  const double v = 0.011489502465878673 * std::sin(2.0 * (lP - sunLongitude));
  const double lPP = lP + v;

  const double ageAngle = lPP - sunLongitude;
  phase = (1.0 - std::cos(ageAngle)) / 2.0;
  moonDistance = 383242.41154199 / (1.0 + kMoonEccentricity * std::cos(mmP + mEc));
  moonDiameter = 0.5181 / (moonDistance / 384401.0);
  // Reported as the angle, not as 29.53058868 days times its fraction of a turn.
  age = FMod2p(ageAngle);
  return 1.0;
}

}  // namespace norvane
