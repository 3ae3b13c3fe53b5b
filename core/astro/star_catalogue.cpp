#include "core/astro/star_catalogue.h"

namespace norvane {

// Both tables are written by tools/gen_star_catalogue.py.
const std::array<StarRecord, kStarCount> StarCatalogue = {{
#include "data/star_catalogue.inc"
}};

const std::array<std::int32_t, kStarCount> StarLinks = {{
#include "data/star_links.inc"
}};

}  // namespace norvane
