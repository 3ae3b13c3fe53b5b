#pragma once

#include "core/propagation/deep_space.h"
#include "core/propagation/model_flags.h"
#include "core/propagation/sdp4.h"
#include "core/propagation/sdp8.h"
#include "core/propagation/sgp4.h"
#include "core/propagation/sgp8.h"

namespace norvane {

// Everything the four models keep between calls: one set of constants per
// model, the deep-space routine's state that SDP4 and SDP8 share, and the
// flags. Only the last initialised satellite's values are held, so a caller
// switching satellite or model family initialises again.
struct ModelState {
  ModelFlags flags;
  Sgp4Constants sgp4;
  Sdp4Constants sdp4;
  Sgp8Constants sgp8;
  Sdp8Constants sdp8;
  DeepSpaceState deep;
};

}  // namespace norvane
