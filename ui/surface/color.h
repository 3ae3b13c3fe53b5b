#pragma once
#include <cstdint>

namespace norvane {

// A 24-bit colour in the platform's byte order: red in the low byte, blue in the third.
constexpr std::uint32_t Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return (red & 0xFFu) | (green & 0xFFu) << 8 | (blue & 0xFFu) << 16;
}

// The skins' transparency colour (red 249, green 57, blue 198).
constexpr std::uint32_t kTransparencyKey = 0xC639F9;

// The key value that makes a blit copy every pixel.
constexpr std::uint16_t kNoKey = 65535;

// Top 5 bits of red, 6 of green, 5 of blue; the low bits are dropped.
constexpr std::uint16_t Rgb565(std::uint32_t rgb) {
  const std::uint32_t red = rgb & 0xFFu;
  const std::uint32_t green = rgb >> 8 & 0xFFu;
  const std::uint32_t blue = rgb >> 16 & 0xFFu;
  return static_cast<std::uint16_t>((red >> 3) << 11 | (green >> 2) << 5 | blue >> 3);
}

}  // namespace norvane
