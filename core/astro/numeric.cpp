#include "core/astro/numeric.h"

#include <cmath>

namespace norvane {

double Int(double x) { return x > 0 ? std::floor(x) : std::ceil(x); }

double Frac(double x) { return x - Int(x); }

int Sign(double x) {
  if (x > 0) return 1;
  if (x < 0) return -1;
  return 0;
}

int Round(double x) { return static_cast<int>(std::floor(x + 0.5)); }

double ArcSin(double x) {
  if (std::fabs(x) >= 1.0) return Sign(x) * kPi / 2.0;
  return std::atan(x / std::sqrt(1.0 - x * x));
}

double ArcCos(double x) { return kPi / 2.0 - ArcSin(x); }

double AcTan(double s, double c) {
  if (c == 0.0) return s > 0.0 ? kPi / 2.0 : 3.0 * kPi / 2.0;
  if (c < 0.0) return kPi + std::atan(s / c);
  if (s > 0.0) return std::atan(s / c);
  return kTwoPi + std::atan(s / c);
}

double FMod2p(double x) {
  if (x >= 0.0 && x < kTwoPi) return x;
  double r = x - kTwoPi * Int(x / kTwoPi);
  if (r < 0.0) r += kTwoPi;
  return r;
}

}  // namespace norvane
