#pragma once
#include <cstdint>
#include <string_view>

#include "core/elements/catalogue.h"

namespace norvane {

// At most this many bytes of an element file are read.
inline constexpr std::uint32_t kMaxElementFileBytes = 33301;

// Fills the catalogue from element-file text: clears the count and the 180
// selection flags, parses entries of a name line and two element lines from
// slot 0 until the text ends, an entry has catalogue number 0, or 181 are
// read, then selects every satellite read. Returns satelliteCount.
int loadElementText(Catalogue& catalogue, std::string_view text);

}  // namespace norvane
