#pragma once

namespace norvane {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kTwoPi = 2.0 * kPi;

// Integer part truncated toward zero.
double Int(double x);
// x - Int(x).
double Frac(double x);
// 1, 0 or -1.
int Sign(double x);
// floor(x + 0.5) as an integer.
int Round(double x);
inline double Sqr(double x) { return x * x; }
inline double Cube(double x) { return x * x * x; }
// +-pi/2 (sign of x) when |x| >= 1, else atan(x / sqrt(1 - x^2)); radians.
double ArcSin(double x);
// pi/2 - ArcSin(x); radians.
double ArcCos(double x);
// Angle of the point (c, s) in [0, 2pi]: (0, c > 0) gives 2pi, not 0.
double AcTan(double s, double c);
// x reduced to [0, 2pi) (x itself when already inside).
double FMod2p(double x);

}  // namespace norvane
