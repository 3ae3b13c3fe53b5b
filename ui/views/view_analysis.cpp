#include "ui/views/view_analysis.h"

#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/sub_satellite_point.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"

namespace norvane {

int ViewEclipsed(const StateVector& satPos, const StateVector& sun, double& depth) {
  const double rhoEarth = ArcSin(6378.137 / satPos.w);
  StateVector toSun;
  Vec_Sub(sun, satPos, toSun);
  const double rhoSun = ArcSin(696000.0 / toSun.w);
  StateVector toEarth;
  Scalar_Multiply(-1.0, satPos, toEarth);
  const double theta = Angle(sun, toEarth);
  depth = rhoEarth - rhoSun - theta;
  return rhoEarth >= rhoSun && depth >= 0.0 ? 1 : 0;
}

void ReadCurrentSatellite(ViewWorld& world, SatelliteReading& reading) {
  const double jd = world.app.currentTime;
  ViewCaches& caches = world.caches;
  propagate(caches.models, world.catalogue, jd, caches.work, world.app.currentSatellite, reading.vel, reading.pos,
            0, world.settings.s4s8);
  VecMagnitude(reading.pos);
  VecMagnitude(reading.vel);
  LookAnglesOf(jd, reading.pos, reading.vel, world.app.observer, caches.look, reading.look, true,
               world.settings.flagRefraction != 0);
  SubSatellitePoint(jd, reading.pos, reading.subPoint);
  StateVector sun;
  SunPosition(jd, sun);
  reading.eclipsed = ViewEclipsed(reading.pos, sun, reading.depth);
  reading.magnitude = 100.0;
}

}  // namespace norvane
