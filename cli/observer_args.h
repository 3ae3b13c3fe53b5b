#pragma once
#include <cmath>
#include <string>

#include "cli/args.h"
#include "core/astro/geodetic.h"
#include "core/astro/numeric.h"

namespace norvane::cli {

inline constexpr double kDegree = kPi / 180.0;

// --lat DEG --lon DEG (east positive) --alt KM as the observer's Geodetic.
inline Geodetic observerFrom(const Args& args) {
  Geodetic observer;
  observer.lat = requiredDouble(args, "lat") * kDegree;
  observer.lon = requiredDouble(args, "lon") * kDegree;
  observer.alt = requiredDouble(args, "alt");
  return observer;
}

// Radians to degrees for printing.
inline double degrees(double radians) { return radians / kDegree; }

}  // namespace norvane::cli
