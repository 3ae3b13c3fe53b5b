#pragma once

namespace norvane {

// The WGS-84 ellipsoid and rotation rate as the observer geometry holds them.
struct EarthModel {
  static constexpr double kEquatorialRadius = 6378.137;           // km
  static constexpr double kPolarRadius = 6356.752314245179;       // km
  static constexpr double kOneMinusF = 0.9966471893352525;        // 1 - f, f = 1/298.257223563
  static constexpr double kESquared = 0.006694379990141316;       // e^2 = f(2 - f)
  static constexpr double kRadiusTimesESquared = 42.69767270717996;  // 6378.137 e^2, km
  static constexpr double kRotationRate = 7.292115e-5;            // rad/s
};

}  // namespace norvane
