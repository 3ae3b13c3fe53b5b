#pragma once
#include <string_view>
#include <vector>

#include "core/elements/satellite.h"

namespace norvane {

// Every element set of a two- or three-line element text, however many: an
// entry is a line 1 ("1 ...") directly followed by its line 2 ("2 ..."),
// named by the line before it when that is neither (names are cut to 24
// characters). Line ends may be LF or CRLF; anything else is skipped.
std::vector<Satellite> readElementSets(std::string_view text);

}  // namespace norvane
