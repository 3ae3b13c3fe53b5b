#include "ui/views/view_analysis.h"

#include "core/analysis/flares.h"
#include "core/analysis/magnitude.h"
#include "core/astro/observer.h"
#include "core/astro/sub_satellite_point.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"

namespace norvane {

void ReadCurrentSatellite(ViewWorld& world, SatelliteReading& reading) {
  const double jd = world.app.currentTime;
  ViewCaches& caches = world.caches;
  const int index = world.app.currentSatellite;
  MagnitudeResult light;
  const PropagationArgs args{caches.models, world.catalogue, caches.work, index, 0, world.settings.s4s8};
  reading.magnitude = SatelliteMagnitude(jd, args, world.app.observer, caches.look, light);
  reading.pos = light.satPos;
  reading.vel = light.satVel;
  VecMagnitude(reading.pos);
  VecMagnitude(reading.vel);
  reading.eclipsed = light.eclipsed;
  reading.depth = light.depth;
  if (light.eclipsed == 0) caches.sunlight = {light.illumination, light.phaseAngle};
  LookAnglesOf(jd, reading.pos, reading.vel, world.app.observer, caches.look, reading.look, true,
               world.settings.flagRefraction != 0);
  SubSatellitePoint(jd, reading.pos, reading.subPoint);
  reading.flareMagnitude = kNoReflection;
  reading.flareAngle = kNoReflection;
  reading.antenna = 0;
  if (world.app.iridiumFile == 0) return;
  StateVector obsPos, obsVel;
  ObserverPosVel(jd, world.app.observer, obsPos, obsVel);
  double psi = 0.0;
  std::int16_t antenna = 0;
  reading.flareMagnitude = FlareMagnitude(light.sun, reading.pos, reading.vel, obsPos, psi, reading.flareAngle, antenna);
  reading.antenna = antenna;
}

}  // namespace norvane
