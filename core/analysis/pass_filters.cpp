#include "core/analysis/pass_filters.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace norvane {
namespace {
constexpr double kDegreesToRadians = 0.0174532925199433;
constexpr std::array<int, 16> kExcludedFlareSatellites{24925, 24926, 24836, 24842, 24841, 24870, 24871, 24873,
                                                       24967, 25043, 25078, 25105, 25319, 25320, 25344, 25527};
}  // namespace

bool IsGeostationary(const Satellite& sat) { return std::fabs(sat.xno - 1.0027) < 9e-5; }

bool CanRise(const Satellite& sat, double latitude) {
  if (sat.xno == 0.0) return false;
  const double semiMajorAxis = 331.25 * std::pow(1440.0 / sat.xno, 2.0 / 3.0);  // km
  const double horizonAngle = std::acos(6378.137 / (semiMajorAxis * (1.0 + sat.eo)));
  const double inclination = (sat.xincl >= 90.0 ? 180.0 - sat.xincl : sat.xincl) * kDegreesToRadians;
  return horizonAngle + inclination > std::fabs(latitude);
}

bool IsExcludedFromFlareSearch(int catnr) {
  return std::find(kExcludedFlareSatellites.begin(), kExcludedFlareSatellites.end(), catnr) !=
         kExcludedFlareSatellites.end();
}

}  // namespace norvane
