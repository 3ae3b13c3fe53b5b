#pragma once
#include <cstdint>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/elements/element_formats.h"

namespace norvane {

// At most this many bytes of an element file are read.
inline constexpr std::uint32_t kMaxElementFileBytes = 33301;

// Fills the catalogue from element-file text: clears the count and the 180
// selection flags, parses entries of a name line and two element lines from
// slot 0 until the text ends, an entry has catalogue number 0, or 181 are
// read, then selects every satellite read. Returns satelliteCount.
// OMM text (CSV or JSON, told apart from element text by detectElementFormat)
// fills the catalogue the same way, up to 181 satellites, from its first
// kMaxOmmBytes bytes; records lacking a required field are skipped.
int loadElementText(Catalogue& catalogue, std::string_view text);

// What a load found: satellites read, OMM records skipped for a missing or
// unreadable required field (element text skips none), and the text's format.
struct ElementLoad {
  int count = 0;
  int skipped = 0;
  ElementFormat format = ElementFormat::Tle;
};

// loadElementText, telling what it found.
ElementLoad loadElements(Catalogue& catalogue, std::string_view text);

}  // namespace norvane
