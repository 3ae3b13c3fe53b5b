#pragma once

namespace norvane {

// Moon phase and distances and the Sun's distance and size at jd (UTC days):
// phase is the illuminated fraction (0 new, 1 full); age is the Moon's
// elongation angle in radians, [0, 2pi) (not days); distances in km;
// apparent diameters in degrees. Always returns 1.0.
double SunMoonAlmanac(double jd, double& phase, double& age, double& moonDistance, double& moonDiameter,
                      double& sunDistance, double& sunDiameter);

}  // namespace norvane
