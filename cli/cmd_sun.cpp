#include <cstdio>

#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/astro/look_angles.h"
#include "core/astro/sun.h"

namespace norvane::cli {
namespace {

int runSun(const Args& args) {
  const double jd = requiredDouble(args, "jd");
  Geodetic observer = observerFrom(args);
  StateVector sun;
  SunPosition(jd, sun);
  LookAngleCache cache;
  LookAngles angles;
  LookAnglesOf(jd, sun, StateVector{}, observer, cache, angles, true, false);

  Record r;
  r.add("x", sun.x).add("y", sun.y).add("z", sun.z).add("distance", sun.w);
  r.add("azimuth", degrees(angles.azimuth)).add("elevation", degrees(angles.elevation));
  r.print(stdout, args.json);
  return 0;
}

}  // namespace

Command sunCommand() {
  return {"sun", "sun --jd JD --lat DEG --lon DEG --alt KM", {"jd", "lat", "lon", "alt"}, {}, runSun, 50};
}

NORVANE_CLI_COMMAND(sunCommand);

}  // namespace norvane::cli
