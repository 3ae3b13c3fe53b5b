#pragma once
#include <cstdint>

#include "core/elements/catalogue.h"
#include "core/propagation/model_state.h"
#include "core/propagation/working_set.h"

namespace norvane {

// What a call of propagate needs besides the time: the model constants, the
// catalogue, the satellite's working copy and slot, whether that copy is
// already initialised (0 = initialise now) and the model family (the s4_s8
// setting).
struct PropagationArgs {
  ModelState& models;
  const Catalogue& catalogue;
  WorkingSet& work;
  int index = 0;
  std::uint8_t initialised = 0;
  int mode = 0;
};

}  // namespace norvane
