#pragma once

#include "core/propagation/model_flags.h"
#include "core/propagation/working_set.h"

namespace norvane {

// Mean motions (rad/min) and eccentricities of the Sun's and the Moon's
// orbits in the lunar-solar terms.
inline constexpr double kSunMeanMotion = 1.19459e-5;
inline constexpr double kSunEccentricity = 0.01675;
inline constexpr double kMoonMeanMotion = 1.5835218e-4;
inline constexpr double kMoonEccentricity = 0.05490;

// The resonance integration: phase constants of the 24-hour (fasx) and
// 12-hour (g) terms, the Earth's rotation, the step and its square over 2.
namespace resonance {
inline constexpr double kG22 = 5.7686396, kG32 = 0.95240898, kG44 = 1.8014998;
inline constexpr double kG52 = 1.0508330, kG54 = 4.4108898;
inline constexpr double kFasx2 = 0.13130908, kFasx4 = 2.8843198, kFasx6 = 0.37448087;
inline constexpr double kThdt = 4.3752691e-3;  // rad/min, Earth's rotation
inline constexpr double kStep = 720.0;         // min, integrator step
inline constexpr double kStep2 = 259200.0;     // kStep^2 / 2
// Beyond this distance from epoch (min, about 1900 years) the integration is
// not attempted: it would take millions of steps, and never end for an
// infinite time.
inline constexpr double kMaxIntegrationSpan = 1.0e9;
}  // namespace resonance

// The record SDP4 and SDP8 share with the deep-space routine, by the names of
// the report. Entry 1 reads the epoch quantities; entry 2 reads and updates
// xll, omgasm, xnodes, xn at time t and sets em and xinc; entry 3 updates em,
// xinc, omgasm, xnodes and xll.
struct DeepExchange {
  // Epoch quantities for entry 1.
  double eosq = 0, siniq = 0, cosiq = 0, rteosq = 0, ao = 0, cosq2 = 0;
  double sinomo = 0, cosomo = 0, bsq = 0, xlldot = 0, omgdt = 0, xnodot = 0, xnodp = 0;
  // Elements at time t (rad, rad/min, minutes).
  double xll = 0, omgasm = 0, xnodes = 0, em = 0, xinc = 0, xn = 0, t = 0;
};

// Lunar or solar periodic coefficients of one body.
struct BodyPeriodics {
  double e2 = 0, e3 = 0, i2 = 0, i3 = 0, l2 = 0, l3 = 0, l4 = 0;
  double gh2 = 0, gh3 = 0, gh4 = 0, h2 = 0, h3 = 0;
};

// Everything the deep-space routine keeps for the last initialised satellite.
struct DeepSpaceState {
  DeepExchange exchange;

  // Epoch copies.
  double siniq = 0, cosiq = 0, omgdt = 0;
  double thgr = 0;    // rad, Greenwich sidereal angle at epoch
  double xnq = 0;     // rad/min, mean motion at epoch
  double xqncl = 0;   // rad, inclination at epoch
  double omegaq = 0;  // rad, argument of perigee at epoch
  double zmol = 0, zmos = 0;  // rad, lunar and solar mean anomalies at epoch

  // Lunar-solar secular rates (per minute) and periodic coefficients.
  double sse = 0, ssi = 0, ssl = 0, ssg = 0, ssh = 0;
  BodyPeriodics solar, lunar;

  // Resonance coefficients: 24-hour (del1-3) and 12-hour (d2201-d5433).
  double del1 = 0, del2 = 0, del3 = 0;
  double d2201 = 0, d2211 = 0, d3210 = 0, d3222 = 0, d4410 = 0, d4422 = 0;
  double d5220 = 0, d5232 = 0, d5421 = 0, d5433 = 0;
  double xlamo = 0, xfact = 0;

  // Resonance integrator: angle, mean motion and time (min) of the last point.
  double xli = 0, xni = 0, atime = 0;

  // Lunar-solar periodics last computed, at time savtsn (min).
  double savtsn = 0;
  double pe = 0, pinc = 0, pl = 0, sghs = 0, sghl = 0, shs = 0, shl = 0;
};

// Days from 1950 January 0.0 to the element epoch as the deep-space routine
// counts them: the two-digit year is always taken as 2000 + yy.
double deepSpaceEpochDays(double epoch);

// Entry 1 with the epoch given as days since 1950 January 0.0.
void deepInitialise(DeepSpaceState& state, ModelFlags& flags, const WorkingSet& work, double ds50);

// The deep-space routine: entry 1 initialises (epoch from deepSpaceEpochDays),
// 2 adds the secular and resonance effects, 3 the lunar-solar periodics.
void deep(DeepSpaceState& state, ModelFlags& flags, int entry, const WorkingSet& work);

}  // namespace norvane
