#include "core/analysis/magnitude.h"

#include <cmath>

#include "core/analysis/eclipse.h"
#include "core/analysis/satellite_shape.h"
#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {
constexpr double kDegreesPerRadian = 57.29577951308231;
constexpr double kLn10 = 2.302585093;
}  // namespace

double SatelliteMagnitude(double jd, const PropagationArgs& args, Geodetic& observer, LookAngleCache& cache,
                          MagnitudeResult& out) {
  SunPosition(jd, out.sun);
  const StateVector still;
  LookAnglesOf(jd, out.sun, still, observer, cache, out.sunAngles, true, false);
  out.modelMilliseconds = propagate(args.models, args.catalogue, jd, args.work, args.index, out.satVel,
                                    out.satPos, args.initialised, args.mode);
  LookAnglesOf(jd, out.satPos, out.satVel, observer, cache, out.satAngles, true, false);
  ObserverPosVel(jd, observer, out.obsPos, out.obsVel);

  out.eclipsed = SatEclipsed(out.satPos, out.sun, out.depth);
  if (out.eclipsed != 0) {
    out.magnitude = kUnknownMagnitude;
    return out.magnitude;
  }
  out.magnitude = PhaseMagnitude(StandardMagnitude(args.work.catnr), out.sun, out.satPos, out.obsPos,
                                 out.illumination, out.phaseAngle);
  return out.magnitude;
}

double PhaseMagnitude(double standardMagnitude, const StateVector& sun, const StateVector& satPos,
                      const StateVector& obsPos, double& illumination, double& phaseAngle) {
  StateVector toSun;
  StateVector toObserver;
  Vec_Sub(sun, satPos, toSun);
  Vec_Sub(obsPos, satPos, toObserver);
  double beta = std::fabs(Angle(toSun, toObserver));
  if (beta > kPi) beta -= kTwoPi;
  const double lit = (1.0 + std::cos(beta)) / 2.0;
  // The difference of the geocentric distances, not the slant range.
  const double distance = satPos.w - obsPos.w;
  double magnitude = standardMagnitude - 15.75 + 5.0 * std::log(distance / lit) / kLn10;
  if (magnitude > 80.0) magnitude = kUnknownMagnitude;  // a NaN passes through
  illumination = 100.0 * lit;
  phaseAngle = beta * kDegreesPerRadian;
  return magnitude;
}
}  // namespace norvane
