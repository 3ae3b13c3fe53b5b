#include "core/analysis/visibility.h"

#include "core/analysis/eclipse.h"
#include "core/analysis/flares.h"
#include "core/astro/observer.h"
#include "core/astro/sun.h"
#include "core/propagation/propagate.h"

namespace norvane {

const char* VisibilityText(VisibilityState state) {
  switch (state) {
    case VisibilityState::Invisible: return "Invisible";
    case VisibilityState::InRange: return "In range";
    case VisibilityState::Eclipsed: return "Eclipsed";
    case VisibilityState::InSun: return "In sun";
    case VisibilityState::Visible: return "Visible";
    case VisibilityState::Flare: return "Flare";
  }
  return "";
}

VisibilityState EvaluateVisibility(double jd, const PropagationArgs& args, Geodetic& observer,
                                   LookAngleCache& cache, bool flareMode, VisibilityResult& out) {
  out.modelMilliseconds = propagate(args.models, args.catalogue, jd, args.work, args.index, out.satVel,
                                    out.satPos, args.initialised, args.mode);
  LookAnglesOf(jd, out.satPos, out.satVel, observer, cache, out.satAngles, false, false);
  out.state = VisibilityState::Invisible;
  out.magnitude = -20.0;
  if (!(out.satAngles.elevation > 0.0)) return out.state;

  out.state = VisibilityState::InRange;
  SunPosition(jd, out.sun);
  const StateVector still;
  LookAnglesOf(jd, out.sun, still, observer, cache, out.sunAngles, true, false);
  out.eclipsed = SatEclipsed(out.satPos, out.sun, out.depth);
  if (out.eclipsed != 0) {
    out.state = VisibilityState::Eclipsed;
    return out.state;
  }
  out.state = VisibilityState::InSun;
  if (out.sunAngles.elevation < kDarkSkySunElevation && !flareMode) {
    PropagationArgs again = args;
    again.initialised = 1;
    out.state = VisibilityState::Visible;
    out.magnitude = SatelliteMagnitude(jd, again, observer, cache, out.detail);
  }
  if (flareMode) {
    StateVector obsPos;
    StateVector obsVel;
    ObserverPosVel(jd, observer, obsPos, obsVel);
    out.magnitude = FlareMagnitude(out.sun, out.satPos, out.satVel, obsPos, out.flarePsi, out.flareAngle,
                                   out.antenna);
    out.state = out.flareAngle < kFlareThreshold ? VisibilityState::Flare : VisibilityState::InSun;
  }
  return out.state;
}

}  // namespace norvane
