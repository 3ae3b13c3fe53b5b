#include <cstdio>
#include <sstream>
#include <string>

#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/astro/look_angles.h"
#include "core/astro/sub_satellite_point.h"

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

int runLook(const Args& args) {
  if (!args.has("state")) {
    throw UsageError{"look needs --state X,Y,Z,VX,VY,VZ (catalogue entries are not available yet)"};
  }
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

  Record r;
  r.add("azimuth", degrees(angles.azimuth)).add("elevation", degrees(angles.elevation));
  r.add("range", angles.range).add("range_rate", angles.rangeRate);
  r.add("sub_lat", degrees(point.lat)).add("sub_lon", degrees(point.lon)).add("sub_alt", point.alt);
  r.print(stdout, args.json);
  return 0;
}

}  // namespace

Command lookCommand() {
  return {"look",
          "look --state X,Y,Z,VX,VY,VZ --jd JD --lat DEG --lon DEG --alt KM [--refraction]",
          {"state", "jd", "lat", "lon", "alt"},
          {"refraction"},
          runLook,
          40};
}

NORVANE_CLI_COMMAND(lookCommand);

}  // namespace norvane::cli
