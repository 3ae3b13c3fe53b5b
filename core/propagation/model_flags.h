#pragma once
#include <cstdint>

namespace norvane {

// Flags the models set at initialisation; the front end clears them before
// every initialisation. SGP4 and SGP8 share the simple-drag word.
struct ModelFlags {
  std::int32_t simpleDrag = 0;   // near-Earth truncated drag equations
  std::int32_t resonance = 0;    // deep space: resonance terms integrated
  std::int32_t synchronous = 0;  // deep space: the 24-hour resonance (else 12-hour)
};

}  // namespace norvane
