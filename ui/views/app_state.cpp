#include "ui/views/app_state.h"

#include "ui/views/view_world.h"

namespace norvane {

const char* ClockLabel(SimulationMode mode) {
  switch (mode) {
    case SimulationMode::RealTime: return "Loc.time";
    case SimulationMode::Pause: return " Pause";
    case SimulationMode::X1: return " Sym.x1";
    case SimulationMode::X10: return " Sym.x10";
    case SimulationMode::X30: return " Sym.x30";
    case SimulationMode::X60: return " Sym.x60";
  }
  return "";
}

void PresentWorld(ViewWorld& world) {
  if (world.display != nullptr) Present(world.surface, *world.display);
}

}  // namespace norvane
