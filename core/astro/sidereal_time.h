#pragma once

namespace norvane {

// Greenwich mean sidereal time of a Julian date (UTC days); radians in [0, 2pi).
double GreenwichSiderealTime(double jd);

// Dynamical time minus universal time at a Julian date; seconds.
double DeltaET(double jd);

}  // namespace norvane
