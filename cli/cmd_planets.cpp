#include <cstdio>
#include <cstring>
#include <string>

#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/astro/planet_elements.h"
#include "core/astro/planets.h"

namespace norvane::cli {
namespace {

int runPlanets(const Args& args) {
  const double jd = requiredDouble(args, "jd");
  Geodetic observer = observerFrom(args);
  PlanetCache planetCache;
  LookAngleCache lookCache;
  for (int body = 0; body < kPlanetCount; ++body) {
    const PlanetElements& record = PlanetRecord(body);
    StateVector position;
    PlanetPosition(jd, body, position, planetCache);
    LookAngles angles;
    PlanetLookAngles(jd, body, observer, planetCache, lookCache, false, angles);

    Record r;
    r.add("name", std::string(record.name.data(), strnlen(record.name.data(), record.name.size())));
    r.add("x", position.x).add("y", position.y).add("z", position.z);
    r.add("azimuth", degrees(angles.azimuth)).add("elevation", degrees(angles.elevation));
    r.print(stdout, args.json);
  }
  return 0;
}

}  // namespace

Command planetsCommand() {
  return {"planets", "planets --jd JD --lat DEG --lon DEG --alt KM", {"jd", "lat", "lon", "alt"}, {},
          runPlanets, 52};
}

NORVANE_CLI_COMMAND(planetsCommand);

}  // namespace norvane::cli
