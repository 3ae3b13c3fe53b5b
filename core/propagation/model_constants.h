#pragma once

namespace norvane::model {

// Constants of the orbit models, in earth radii and minutes. The multiples of
// CK2 and CK4 are held as the literals the models use, not recomputed, so
// that every product keeps its digits.
inline constexpr double kXke = 0.0743669161;         // sqrt(GM), er^1.5/min
inline constexpr double kCk2 = 0.0005413079;         // J2 / 2
inline constexpr double kCk2x1p5 = 0.00081196185;    // 1.5 CK2
inline constexpr double kCk2x2 = 0.0010826158;       // 2 CK2
inline constexpr double kCk2x3 = 0.0016239237;       // 3 CK2
inline constexpr double kCk2x0p75 = 0.000405980925;  // 0.75 CK2
inline constexpr double kCk2x0p5 = 0.00027065395;    // 0.5 CK2
inline constexpr double kCk4x1p25 = 7.76235875e-7;   // 1.25 CK4, one digit short of the report's
inline constexpr double kA3ovk2 = 0.004690140306468833;  // -J3 / CK2
inline constexpr double kQoms2t = 1.880279e-9;       // ((120 - 78) km / earth radius)^4, truncated
inline constexpr double kS = 1.012229;               // 1 + 78 km / earth radius, truncated
inline constexpr double kEarthRadiusKm = 6378.137;
inline constexpr double kSimpleDragBound = 1.0344928307435228;  // 1 + 220 km / earth radius
inline constexpr double kAe = 1.0;
inline constexpr double kTwoThirds = 0.6666666666666666;
inline constexpr double k134Over81 = 1.654320987654321;
inline constexpr double kRho = 0.15696615;           // SGP8/SDP8 reference density term

// Kepler's equation: Newton passes until the correction is at most this...
inline constexpr double kKeplerTolerance = 1.0e-6;
// ...or this many passes have been made (one more than the report allows).
inline constexpr int kKeplerPasses = 11;

// Anomalistic period from which an orbit counts as deep space, minutes.
inline constexpr double kDeepSpacePeriod = 225.0;

}  // namespace norvane::model
