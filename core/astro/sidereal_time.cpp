#include "core/astro/sidereal_time.h"

#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {

double GreenwichSiderealTime(double jd) {
  const double ut = Frac(jd + 0.5);
  const double jd0 = jd - ut;
  const double t = (jd0 - 2451545.0) / 36525.0;
  double gmst = 24110.54841 + t * (8640184.812866 + t * (0.093104 - t * 6.2e-6));
  gmst = std::fmod(gmst + 86636.555366976 * ut, 86400.0);
  if (gmst < 0.0) gmst += 86400.0;
  return kTwoPi * gmst / 86400.0;
}

double DeltaET(double jd) {
  return 26.465 + 0.00204687748 * (jd - 2433232.0) +
         1.886913 * std::sin(0.0005212855709 * (jd - 2442363.25));
}

}  // namespace norvane
