#pragma once
#include <array>
#include <cstdint>

#include "core/elements/satellite.h"

namespace norvane {

inline constexpr int kCatalogueSlots = 181;
inline constexpr int kSelectionFlags = 180;

// The satellites of the current element file. Slots past satelliteCount keep
// whatever an earlier file left in them; only 180 selection flags exist.
struct Catalogue {
  std::array<Satellite, kCatalogueSlots> satellites{};
  std::int32_t satelliteCount = 0;
  std::array<std::int32_t, kSelectionFlags> selected{};
};

}  // namespace norvane
