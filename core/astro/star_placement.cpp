#include "core/astro/star_placement.h"

#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {

int StarHorizontal(double sinTheta, double cosTheta, const StarRecord& star, const StarObserver& observer,
                   StarPoint& out) {
  const double cosH = cosTheta * star.cosRa + sinTheta * star.sinRa;
  out.altitude = std::asin(star.sinDec * observer.sinLat + star.cosDec * observer.cosLat * cosH);
  if (out.altitude <= 0.0) return 0;
  const double sinH = sinTheta * star.cosRa - cosTheta * star.sinRa;
  out.azimuth =
      AcTan(sinH, cosH * observer.sinLat - (star.sinDec / star.cosDec) * observer.cosLat) + kPi;
  return 1;
}

int StarScanCount(int limit) {
  if (limit <= 1) return 16;
  if (limit <= 2) return 50;
  if (limit <= 3) return 174;
  if (limit <= 4) return 505;
  return kStarCount;
}

}  // namespace norvane
