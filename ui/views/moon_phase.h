#pragma once
#include <cstdint>

#include "ui/surface/image.h"

namespace norvane {

// Where the round disc lies inside a keyed skin, in skin pixels.
struct MoonDisc {
  double cx = 0.0, cy = 0.0;  // centre (pixel centres count from 0)
  double radius = 0.0;        // half the disc's width
};

// The disc of a skin: the box of its pixels that are not the transparency
// key. A skin with nothing but key pixels gives a radius of 0.
MoonDisc DiscOf(const Image& skin, std::uint16_t key);

// Whether the skin pixel (col, row) lies on the Moon's unlit side for an
// illuminated fraction (0 new .. 1 full). The terminator crosses each row at
// cos(pi * phase) of the row's half width, on the side away from the Sun:
// the right side is lit while the Moon waxes, the left while it wanes.
bool MoonPixelUnlit(const MoonDisc& disc, std::int32_t col, std::int32_t row, double phase, bool waxing);

}  // namespace norvane
