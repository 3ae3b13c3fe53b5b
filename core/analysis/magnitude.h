#pragma once
#include <cstdint>

#include "core/analysis/propagation_args.h"
#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"
#include "core/propagation/state_vector.h"

namespace norvane {

// Everything one magnitude estimate computes on its way.
struct MagnitudeResult {
  double magnitude = 100.0;     // 100.0: unknown or not lit
  double illumination = 0;      // percent of the disc lit; not written when eclipsed
  double phaseAngle = 0;        // deg, Sun-satellite-observer; not written when eclipsed
  int eclipsed = 0;             // 1 in the umbra
  double depth = 0;             // rad, umbra depth (SatEclipsed)
  std::uint32_t modelMilliseconds = 0;  // returned by propagate
  StateVector satPos;           // km
  StateVector satVel;           // km/s
  StateVector sun;              // km, geocentric
  StateVector obsPos;           // km
  StateVector obsVel;           // km/s
  LookAngles satAngles;         // kept below the horizon, no refraction
  LookAngles sunAngles;         // kept below the horizon, no refraction
};

// Magnitude of a lit satellite of the given standard magnitude from the
// Sun-satellite-observer geometry (km, geocentric, with lengths); writes the
// lit percentage and the phase angle (deg). Above 80 it is 100.0.
double PhaseMagnitude(double standardMagnitude, const StateVector& sun, const StateVector& satPos,
                      const StateVector& obsPos, double& illumination, double& phaseAngle);

// Visual magnitude of the satellite at jd (UTC days) from its standard
// magnitude and phase angle; 100.0 when eclipsed or not in the size table.
double SatelliteMagnitude(double jd, const PropagationArgs& args, Geodetic& observer, LookAngleCache& cache,
                          MagnitudeResult& out);

}  // namespace norvane
