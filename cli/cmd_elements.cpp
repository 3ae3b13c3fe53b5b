#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/catalogue_args.h"
#include "cli/output.h"
#include "core/elements/element_file.h"

namespace norvane::cli {
namespace {


std::string nameOf(const Satellite& sat) {
  return std::string(sat.name.data(), strnlen(sat.name.data(), sat.name.size()));
}

Record satelliteRecord(int slot, const Satellite& sat) {
  Record r;
  r.add("slot", slot).add("catnr", sat.catnr).add("name", nameOf(sat));
  r.add("epoch", sat.epoch).add("xndt2o", sat.xndt2o).add("bstar", sat.bstar);
  r.add("xincl", sat.xincl).add("xnodeo", sat.xnodeo).add("eo", sat.eo);
  r.add("omegao", sat.omegao).add("xmo", sat.xmo).add("xno", sat.xno);
  r.add("elset", sat.elset).add("revnum", sat.revnum);
  return r;
}

int runElements(const Args& args) {
  std::string message;
  ElementLoad load;
  const auto catalogue = catalogueFrom(args, &message, &load);
  for (int slot = 0; slot < catalogue->satelliteCount; ++slot) {
    satelliteRecord(slot, catalogue->satellites[static_cast<std::size_t>(slot)]).print(stdout, args.json);
  }
  Record summary;
  summary.add("count", catalogue->satelliteCount).add("message", message);
  summary.add("format", elementFormatName(load.format)).add("skipped", load.skipped);
  summary.print(stdout, args.json);
  return 0;
}

}  // namespace

Command elementsCommand() {
  return {"elements", "elements --tle FILE", {"tle"}, {}, runElements, 20};
}

NORVANE_CLI_COMMAND(elementsCommand);

}  // namespace norvane::cli
