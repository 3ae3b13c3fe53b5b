#include "core/propagation/propagate.h"

#include <chrono>
#include <cmath>

#include "core/astro/julian_date.h"
#include "core/astro/numeric.h"
#include "core/propagation/mean_motion_recovery.h"
#include "core/propagation/model_constants.h"

namespace norvane {
namespace {

constexpr double kDegreesToRadians = 0.0174532925199433;
constexpr double kRevPerDayToRadPerMinute = 6.283185307179586 / 1440.0;
constexpr double kRevPerDay2ToRadPerMinute2 = 3.0300855069346e-6;
constexpr double kRevPerDay3ToRadPerMinute3 = 6.283185307179586 / 2.985984e9;

// A millisecond tick counter that wraps like the platform's.
std::uint32_t tickCount() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void scale(StateVector& v, double factor) {
  v.x *= factor;
  v.y *= factor;
  v.z *= factor;
  v.w = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

}  // namespace

double epochToJulian(double epoch) {
  const double y = Int(epoch * 0.001);
  const double day = epoch - 1000.0 * y;
  const double year = y < 57.0 ? 2000.0 + y : 1900.0 + y;
  return JulianDateOfYear(year) + day;
}

void copyElements(WorkingSet& work, const Satellite& sat) {
  work.epoch = sat.epoch;
  work.xndt2o = sat.xndt2o;
  work.bstar = sat.bstar;
  work.xincl = sat.xincl;
  work.xnodeo = sat.xnodeo;
  work.eo = sat.eo;
  work.omegao = sat.omegao;
  work.xmo = sat.xmo;
  work.xno = sat.xno;
  work.catnr = sat.catnr;
  work.revnum = sat.revnum;
  work.name = sat.name;
}

void initialiseWorkingSet(WorkingSet& work, const Satellite& sat) {
  copyElements(work, sat);
  work.period = 0.0;

  work.xnodeo *= kDegreesToRadians;
  work.omegao *= kDegreesToRadians;
  work.xmo *= kDegreesToRadians;
  work.xincl *= kDegreesToRadians;
  work.xno *= kRevPerDayToRadPerMinute;
  work.xndt2o *= kRevPerDay2ToRadPerMinute2;
  work.xndd6o *= kRevPerDay3ToRadPerMinute3;
  work.bstar /= model::kAe;

  // A mean motion of 0 gives an infinite period (deep space); nothing traps.
  const RecoveredOrbit orbit = recoverMeanMotion(work.xno, work.xincl, work.eo);
  work.period = kTwoPi / orbit.xnodp;
  work.isDeepSpace = work.period >= model::kDeepSpacePeriod ? 1 : 0;
}

void runModel(ModelState& s, double tsince, const WorkingSet& work, StateVector& position,
              StateVector& velocity, std::uint8_t initialised, int mode) {
  if (mode == kSgp8Mode) {
    if (work.isDeepSpace != 0) sdp8(s.sdp8, s.deep, s.flags, tsince, work, position, velocity, initialised);
    else sgp8(s.sgp8, s.flags, tsince, work, position, velocity, initialised);
  } else {
    if (work.isDeepSpace != 0) sdp4(s.sdp4, s.deep, s.flags, tsince, work, position, velocity, initialised);
    else sgp4(s.sgp4, s.flags, tsince, work, position, velocity, initialised);
  }
}

const char* modelName(const WorkingSet& work, int mode) {
  if (mode == kSgp8Mode) return work.isDeepSpace != 0 ? "SDP8" : "SGP8";
  return work.isDeepSpace != 0 ? "SDP4" : "SGP4";
}

namespace {

void prepare(ModelState& models, const Catalogue& catalogue, WorkingSet& work, int index) {
  models.flags = ModelFlags{};
  const bool inside = index >= 0 && index < kCatalogueSlots;
  initialiseWorkingSet(work, inside ? catalogue.satellites[static_cast<std::size_t>(index)] : Satellite{});
}

std::uint32_t timedModel(ModelState& models, double tsince, const WorkingSet& work, StateVector& velocity,
                         StateVector& position, std::uint8_t initialised, int mode) {
  const std::uint32_t start = tickCount();
  runModel(models, tsince, work, position, velocity, initialised, mode);
  const std::uint32_t end = tickCount();
  scale(position, kKilometresPerEarthRadius);
  scale(velocity, kKmPerSecondPerEarthRadiusPerMinute);
  return end - start;
}

}  // namespace

std::uint32_t propagate(ModelState& models, const Catalogue& catalogue, double jd, WorkingSet& work,
                        int index, StateVector& velocity, StateVector& position, std::uint8_t initialised,
                        int mode) {
  if (initialised == 0) prepare(models, catalogue, work, index);
  const double tsince = (jd - epochToJulian(work.epoch)) * 1440.0;
  return timedModel(models, tsince, work, velocity, position, initialised, mode);
}

std::uint32_t propagateSince(ModelState& models, const Catalogue& catalogue, double tsince, WorkingSet& work,
                             int index, StateVector& velocity, StateVector& position, std::uint8_t initialised,
                             int mode) {
  if (initialised == 0) prepare(models, catalogue, work, index);
  return timedModel(models, tsince, work, velocity, position, initialised, mode);
}

}  // namespace norvane
