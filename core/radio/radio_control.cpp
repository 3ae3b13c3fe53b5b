#include "core/radio/radio_control.h"

namespace norvane {

namespace {
constexpr double kSearchDays = 1.0;
constexpr double kRetryDays = 1.0 / 24.0;  // no pass ahead: look again an hour later
}  // namespace

RadioControl::RadioControl(const Satellite& satellite, const Geodetic& observer, const RadioControlConfig& config)
    : propagator_(satellite, config.family), observer_(observer), config_(config) {}

void RadioControl::replan(double jd) {
  PassSearch search;
  search.minElevationDeg = config_.rotator.minElevationDeg;
  search.searchDays = kSearchDays;
  const PassTrack track = SampleNextPass(propagator_, observer_, jd, search);
  plan_ = PlanRotatorPass(track.samples, config_.rotator);
  planned_ = true;
  planFrom_ = jd;
  nextSearchJd_ = plan_.valid ? plan_.losJd : jd + kRetryDays;
}

ControlStep RadioControl::step(double jd) {
  const bool clockWentBack = planned_ && jd < planFrom_;
  const bool passOver = planned_ && jd > nextSearchJd_;
  if (!planned_ || clockWentBack || passOver) replan(jd);

  ControlStep out;
  out.jd = jd;
  out.sky = SkyPositionAt(propagator_, observer_, jd);
  out.frequencies = CorrectedFrequencies(config_.transponder, out.sky.rangeRateKmS, config_.tuningOffsetHz);
  // Inside a pass the azimuth follows on from the last target; a pass begins where the plan starts it.
  const double near = previousAzimuth_ ? *previousAzimuth_ : plan_.start.azimuthDeg;
  out.rotator = RotatorTargetAt(jd, {out.sky.azimuthDeg, out.sky.elevationDeg}, plan_, config_.rotator, near);
  out.flip = plan_.valid && plan_.flip;
  if (out.rotator.phase == RotatorPhase::Track) {
    previousAzimuth_ = out.rotator.position.azimuthDeg;
  } else {
    previousAzimuth_.reset();
  }
  return out;
}

}  // namespace norvane
