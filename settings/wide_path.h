#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace norvane {

// A path as a buffer of 260 UTF-16 units (the last one always a terminator).
inline constexpr std::size_t kWidePathUnits = 260;
inline constexpr std::size_t kWidePathBytes = kWidePathUnits * 2;

// The UTF-8 path as 520 bytes of UTF-16LE: the text, a zero terminator and zeros
// up to the end. A longer path is cut at a whole character; bad UTF-8 bytes
// become U+FFFD.
std::array<std::uint8_t, kWidePathBytes> encodeWidePath(std::string_view utf8);

// The text of a UTF-16LE buffer up to its first zero unit (or its end) as
// UTF-8; unpaired surrogates become U+FFFD.
std::string decodeWidePath(const std::uint8_t* bytes, std::size_t size);

}  // namespace norvane
