#include "core/astro/moon.h"

#include <cmath>

#include "core/astro/numeric.h"
#include "core/astro/sidereal_time.h"

namespace norvane {
namespace {

// Obliquity as this theory holds it.
constexpr double kCosEpsilon = 0.91746406;
constexpr double kSinEpsilon = 0.397818675;

struct Equatorial {
  double ra = 0;   // rad, [0, 2pi)
  double dec = 0;  // rad
};

struct MeanArguments {
  double l = 0;        // mean longitude
  double m = 0;        // mean anomaly
  double ms = 0;       // the Sun's mean anomaly
  double twoD = 0;     // twice the mean elongation
  double f = 0;        // argument of latitude
};

MeanArguments meanArguments(double d) {
  MeanArguments a;
  a.l = FMod2p(1.134193 + 0.229971506 * d);
  a.m = FMod2p(1.319238 + 0.228027135 * d);
  a.ms = FMod2p(6.217512 + 0.01720196977 * d);
  a.twoD = 2.0 * FMod2p(2.550677 + 0.212768711 * d);
  a.f = FMod2p(4.7652214 + 0.230895723 * d);
  return a;
}

Equatorial equatorialOf(const MeanArguments& a) {
  const double lambda = a.l + 0.01148 * std::sin(a.twoD) + 0.10976 * std::sin(a.m) -
                        0.022235 * std::sin(a.m - a.twoD) - 0.003246 * std::sin(a.ms) +
                        0.003735 * std::sin(2.0 * a.m) - 0.0019897 * std::sin(2.0 * a.f) -
                        0.0010297 * std::sin(2.0 * a.m - a.twoD) - 0.0009948 * std::sin(a.m + a.ms - a.twoD);
  const double beta = 0.0897797 * std::sin(a.f + 0.011507 * std::sin(a.twoD) + 0.10873924 * std::sin(a.m) -
                                           0.0222006 * std::sin(a.m - a.twoD)) -
                      0.002548 * std::sin(a.f - a.twoD);
  const double s = kCosEpsilon * std::sin(beta) + kSinEpsilon * std::cos(beta) * std::sin(lambda);
  Equatorial eq;
  eq.dec = std::atan2(s, std::sqrt(1.0 - s * s));
  eq.ra = std::atan2(std::sin(lambda) * kCosEpsilon - std::tan(beta) * kSinEpsilon, std::cos(lambda));
  if (eq.ra < 0.0) eq.ra += kTwoPi;
  return eq;
}

double fractionOf(double x) { return x - std::floor(x); }

// Greenwich sidereal time as a fraction of a day, from the day count alone.
double siderealFraction(double d) {
  const double ut = 24.0 * (d - std::floor(d));
  const double x = d - 39410.0;
  const double g = std::floor((x + 32044.75) / 36524.25);
  const double year = 2084.0 + std::floor((g + x - g / 4.0 + 1486.0 - 122.1) / 365.25);
  const double y = year - 1.0;
  const double d0 =
      std::floor(365.25 * (y - 1980.0)) - std::floor(y / 100.0) + std::floor(y / 400.0) + 381.0;
  const double t0 = (d0 + 29218.5) / 36525.0;
  const double hours = 6.6460656 + t0 * (2400.051262 + t0 * 2.581e-5) - 24.0 * (year - 1900.0) +
                       0.0657098 * (d - d0) + 1.002737909350795 * ut;
  return fractionOf(hours / 24.0);
}

}  // namespace

double MoonParallaxAltitude(double h, double r) { return h - 0.0166 * std::cos(h) / r; }

void MoonPosition(double d, const Geodetic& observer, MoonHorizontal& horizontal, MoonSubPoint& subPoint) {
  const MeanArguments a = meanArguments(d);
  const Equatorial eq = equatorialOf(a);
  const double hourAngle = kTwoPi * fractionOf(siderealFraction(d) - eq.ra / kTwoPi) + observer.lon;
  const double sinPhi = std::sin(observer.lat);
  const double cosPhi = std::cos(observer.lat);
  const double sinH = std::cos(hourAngle) * std::cos(eq.dec) * cosPhi + std::sin(eq.dec) * sinPhi;
  const double h = std::atan2(sinH, std::sqrt(1.0 - sinH * sinH));
  double azimuth =
      std::atan2(-std::sin(hourAngle) * std::cos(eq.dec) * cosPhi, std::sin(eq.dec) - sinPhi * std::sin(h));
  if (azimuth < 0.0) azimuth += kTwoPi;
  const double r = 0.996986 / (1.0 + 0.0549 * std::cos(a.m + 0.10976 * std::sin(a.m)));
  horizontal.azimuth = azimuth;
  horizontal.altitude = MoonParallaxAltitude(h, r);
  horizontal.distance = r;
  subPoint.lat = eq.dec;
  subPoint.lon = eq.ra - GreenwichSiderealTime(d + kMoonEpoch);
  subPoint.distance = 384403.0;
}

}  // namespace norvane
