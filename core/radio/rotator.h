#pragma once
#include <span>

namespace norvane {

// Azimuth travel of a rotator, in degrees: 0 to 360, -180 to 180 (stop in the
// north), or 0 to 450 (a quarter turn of overlap past north).
enum class AzimuthRange : int { Zero360 = 0, Minus180To180 = 1, Zero450 = 2 };
// Elevation travel: 0 to 90, or 0 to 180 (the antenna can point over the zenith).
enum class ElevationRange : int { Zero90 = 0, Zero180 = 1 };
// Whether a 0-180 rotator may take a pass "flipped": azimuth + 180, elevation 180 - el.
enum class FlipMode : int { Off = 0, Auto = 1 };

struct RotatorConfig {
  AzimuthRange azimuthRange = AzimuthRange::Zero360;
  ElevationRange elevationRange = ElevationRange::Zero90;
  FlipMode flip = FlipMode::Auto;
  double toleranceDeg = 2.0;        // deg, smaller moves are not sent
  double minElevationDeg = 0.0;     // deg, the rotator tracks only above this
  double parkAzimuthDeg = 0.0;      // deg, where the antenna rests between passes
  double parkElevationDeg = 0.0;    // deg
  double prePositionMinutes = 3.0;  // min, turn to the AOS azimuth this long before AOS
};

struct AzEl {
  double azimuthDeg = 0;
  double elevationDeg = 0;
};

// One point of a pass as the observer sees it.
struct TrackSample {
  double jd = 0;            // UTC days
  double azimuthDeg = 0;    // [0, 360)
  double elevationDeg = 0;  // deg
};

// How the rotator takes one pass, decided once from the whole pass.
struct RotatorPassPlan {
  bool valid = false;       // a pass was given
  bool flip = false;        // azimuth + 180, elevation 180 - el for the whole pass
  bool fits = false;        // the pass stays inside the azimuth travel without a stop crossing
  double aosJd = 0;         // UTC days, first sample at or above the minimum elevation
  double losJd = 0;         // UTC days, last such sample
  AzEl start;               // rotator position for AOS (rotator coordinates)
};

// Lowest and highest azimuth the rotator accepts, deg.
double AzimuthLow(AzimuthRange range);
double AzimuthHigh(AzimuthRange range);

// Plans a pass from its samples (time order); samples below the minimum
// elevation are ignored. Flips only on a 0-180 rotator with flip on, and only
// when that avoids a stop crossing the plain way cannot, or saves travel.
RotatorPassPlan PlanRotatorPass(std::span<const TrackSample> track, const RotatorConfig& config);

// The rotator position for a direction (deg), flipped or not: the azimuth is
// the one inside the rotator's travel that lies nearest nearAzimuthDeg, the
// elevation is kept within the rotator's range.
AzEl RotatorPosition(AzEl look, bool flip, const RotatorConfig& config, double nearAzimuthDeg);

enum class RotatorPhase : int { Park = 0, PrePosition = 1, Track = 2 };

struct RotatorTarget {
  AzEl position;  // rotator coordinates, deg
  RotatorPhase phase = RotatorPhase::Park;
};

// Where the rotator should point at jd: tracking the satellite while the
// planned pass is on and the satellite is above the minimum elevation,
// waiting at the pass's start shortly before AOS, parked otherwise.
// previousAzimuthDeg is the last target's azimuth (keeps overlap continuous).
RotatorTarget RotatorTargetAt(double jd, AzEl look, const RotatorPassPlan& plan, const RotatorConfig& config,
                              double previousAzimuthDeg);

// True when target differs from the last position sent by more than the tolerance on either axis.
bool RotatorNeedsMove(AzEl lastSent, AzEl target, double toleranceDeg);

const char* RotatorPhaseName(RotatorPhase phase);

}  // namespace norvane
