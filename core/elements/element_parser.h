#pragma once
#include <cstddef>
#include <string_view>

#include "core/elements/catalogue.h"

namespace norvane {

// Sizes of the buffers the loaders hand to the parser.
inline constexpr std::size_t kNameLineCapacity = 25;
inline constexpr std::size_t kElementLineCapacity = 80;

// A line buffer as filled by readLine: every byte of it, zeros included.
// Positions past its size read as zero.
using LineBuffer = std::string_view;

// Parses a name line and two element lines into catalogue.satellites[slot] by
// the fixed column table of the format (line 1 positions are those of a line
// shifted by the line feed that follows a 24-character name line). Returns
// true when the entry's catalogue number is not 0; an out-of-range slot is
// left alone and gives false.
bool parseElementSet(Catalogue& catalogue, LineBuffer nameLine, LineBuffer line1,
                     LineBuffer line2, int slot);

// Puts the harmless "No satellite " entry into slot 0.
void loadBlankSatellite(Catalogue& catalogue);

// Value of an Alpha-5 catalogue number ("A0001" = 100001; I and O are not
// used), or 0 when text is not one such letter followed by four digits.
int alpha5CatalogueNumber(std::string_view text);

}  // namespace norvane
