#include <cstdio>

#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/astro/moon.h"
#include "core/astro/sun_moon_almanac.h"

namespace norvane::cli {
namespace {

int runMoon(const Args& args) {
  const double jd = requiredDouble(args, "jd");
  const Geodetic observer = observerFrom(args);
  MoonHorizontal horizontal;
  MoonSubPoint subPoint;
  MoonPosition(jd - kMoonEpoch, observer, horizontal, subPoint);
  double phase = 0, age = 0, moonDistance = 0, moonDiameter = 0, sunDistance = 0, sunDiameter = 0;
  SunMoonAlmanac(jd, phase, age, moonDistance, moonDiameter, sunDistance, sunDiameter);

  Record r;
  r.add("azimuth", degrees(horizontal.azimuth)).add("altitude", degrees(horizontal.altitude));
  r.add("sub_lat", degrees(subPoint.lat)).add("sub_lon", degrees(subPoint.lon));
  r.add("distance", moonDistance).add("phase", phase).add("age", age).add("diameter", moonDiameter);
  r.print(stdout, args.json);
  return 0;
}

}  // namespace

Command moonCommand() {
  return {"moon", "moon --jd JD --lat DEG --lon DEG --alt KM", {"jd", "lat", "lon", "alt"}, {}, runMoon, 51};
}

NORVANE_CLI_COMMAND(moonCommand);

}  // namespace norvane::cli
