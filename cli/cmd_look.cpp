#include <cstdio>
#include <memory>
#include <sstream>
#include <string>

#include "cli/catalogue_args.h"
#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/visibility.h"
#include "core/astro/look_angles.h"
#include "core/astro/sub_satellite_point.h"
#include "core/propagation/propagate.h"

namespace norvane::cli {
namespace {

// "X,Y,Z,VX,VY,VZ" as a position (km) and a velocity (km/s).
void parseState(const std::string& text, StateVector& pos, StateVector& vel) {
  double v[6] = {0, 0, 0, 0, 0, 0};
  std::size_t start = 0;
  for (int i = 0; i < 6; ++i) {
    const std::size_t comma = text.find(',', start);
    const bool last = i == 5;
    if (last != (comma == std::string::npos)) throw InputError{"--state: six numbers wanted: " + text};
    v[i] = toDouble("state", text.substr(start, last ? std::string::npos : comma - start));
    start = comma + 1;
  }
  pos = {v[0], v[1], v[2], 0.0};
  vel = {v[3], v[4], v[5], 0.0};
}

Record geometryRecord(const LookAngles& angles, const Geodetic& point) {
  Record r;
  r.add("azimuth", degrees(angles.azimuth)).add("elevation", degrees(angles.elevation));
  r.add("range", angles.range).add("range_rate", angles.rangeRate);
  r.add("sub_lat", degrees(point.lat)).add("sub_lon", degrees(point.lon)).add("sub_alt", point.alt);
  return r;
}

int lookAtState(const Args& args) {
  StateVector pos;
  StateVector vel;
  parseState(*args.value("state"), pos, vel);
  const double jd = requiredDouble(args, "jd");
  Geodetic observer = observerFrom(args);

  LookAngleCache cache;
  LookAngles angles;
  LookAnglesOf(jd, pos, vel, observer, cache, angles, true, args.flag("refraction"));
  Geodetic point;
  SubSatellitePoint(jd, pos, point);
  geometryRecord(angles, point).print(stdout, args.json);
  return 0;
}

// A catalogue entry: its geometry, then what the visibility evaluation and
// the magnitude estimate say of it (flare mode only with --flares).
int lookAtEntry(const Args& args) {
  const int index = requiredInt(args, "index");
  const double jd = requiredDouble(args, "jd");
  Geodetic observer = observerFrom(args);
  auto catalogue = catalogueFrom(args);
  if (index < 0 || index >= catalogue->satelliteCount) {
    throw InputError{"--index " + std::to_string(index) + " is not a loaded satellite"};
  }
  auto models = std::make_unique<ModelState>();
  WorkingSet work;
  LookAngleCache cache;
  StateVector pos;
  StateVector vel;
  propagate(*models, *catalogue, jd, work, index, vel, pos, 0, 0);
  LookAngles angles;
  LookAnglesOf(jd, pos, vel, observer, cache, angles, true, args.flag("refraction"));
  Geodetic point;
  SubSatellitePoint(jd, pos, point);

  const PropagationArgs again{*models, *catalogue, work, index, 1, 0};
  VisibilityResult visibility;
  const VisibilityState state = EvaluateVisibility(jd, again, observer, cache, args.flag("flares"), visibility);
  MagnitudeResult magnitude;
  SatelliteMagnitude(jd, again, observer, cache, magnitude);

  Record r = geometryRecord(angles, point);
  r.add("state", static_cast<int>(state)).add("state_text", VisibilityText(state));
  r.add("magnitude", visibility.magnitude);
  r.add("illumination", magnitude.illumination).add("phase_angle", magnitude.phaseAngle);
  r.add("eclipsed", magnitude.eclipsed).add("depth", magnitude.depth);
  r.add("flare_angle", degrees(visibility.flareAngle)).add("antenna", static_cast<int>(visibility.antenna));
  r.print(stdout, args.json);
  return 0;
}

int runLook(const Args& args) {
  if (args.has("state") == args.has("tle")) {
    throw UsageError{"look needs --state X,Y,Z,VX,VY,VZ or --tle FILE --index N"};
  }
  return args.has("state") ? lookAtState(args) : lookAtEntry(args);
}

}  // namespace

Command lookCommand() {
  return {"look",
          "look (--state X,Y,Z,VX,VY,VZ | --tle FILE --index N [--flares]) --jd JD --lat DEG --lon DEG "
          "--alt KM [--refraction]",
          {"state", "tle", "index", "jd", "lat", "lon", "alt"},
          {"refraction", "flares"},
          runLook,
          40};
}

NORVANE_CLI_COMMAND(lookCommand);

}  // namespace norvane::cli
