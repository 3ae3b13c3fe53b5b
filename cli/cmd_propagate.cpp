#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/catalogue_args.h"
#include "cli/output.h"
#include "core/elements/element_file.h"
#include "core/propagation/propagate.h"

namespace norvane::cli {
namespace {


int runPropagate(const Args& args) {
  const int index = requiredInt(args, "index");
  if (args.has("jd") == args.has("tsince")) throw UsageError{"give one of --jd and --tsince"};
  const double time = args.has("jd") ? requiredDouble(args, "jd") : requiredDouble(args, "tsince");

  const auto catalogue = catalogueFrom(args);
  if (index < 0 || index >= catalogue->satelliteCount) {
    throw InputError{"--index " + std::to_string(index) + " is not a loaded satellite (" +
                     std::to_string(catalogue->satelliteCount) + " loaded)"};
  }

  const int mode = args.flag("sgp8") ? kSgp8Mode : 0;
  auto models = std::make_unique<ModelState>();
  WorkingSet work;
  StateVector position, velocity;
  const std::uint32_t ms =
      args.has("jd") ? propagate(*models, *catalogue, time, work, index, velocity, position, 0, mode)
                     : propagateSince(*models, *catalogue, time, work, index, velocity, position, 0, mode);
  Record r;
  r.add("x", position.x).add("y", position.y).add("z", position.z);
  r.add("vx", velocity.x).add("vy", velocity.y).add("vz", velocity.z);
  r.add("model", modelName(work, mode)).add("period", work.period).add("deep_space", work.isDeepSpace);
  r.add("ms", static_cast<int>(ms));
  r.print(stdout, args.json);
  return 0;
}

}  // namespace

Command propagateCommand() {
  return {"propagate", "propagate --tle FILE --index N (--jd JD | --tsince MIN) [--sgp8]",
          {"tle", "index", "jd", "tsince"}, {"sgp8"}, runPropagate, 30};
}

NORVANE_CLI_COMMAND(propagateCommand);

}  // namespace norvane::cli
