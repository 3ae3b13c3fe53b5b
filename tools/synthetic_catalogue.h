#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/elements/element_list.h"
#include "core/elements/satellite.h"

namespace norvane {

// A catalogue of count satellites made from real element sets: each copy
// keeps its template's orbit class (inclination, eccentricity, argument of
// perigee, mean motion, drag), gets a mean anomaly and a node spread evenly
// at random and an epoch within the three days before the latest template
// epoch. About deepSpaceShare of the copies come from the deep-space
// templates (periods of 225 minutes or more), the rest from the near-Earth
// ones. Catalogue numbers run from 70000; the same seed gives the same set.
std::vector<Satellite> syntheticCatalogue(std::span<const Satellite> templates, std::size_t count,
                                          double deepSpaceShare, std::uint32_t seed);

// Three-line element text (name, line 1, line 2 with checksums) of sats.
std::string elementText(std::span<const Satellite> sats);

}  // namespace norvane
