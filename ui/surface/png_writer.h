#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "ui/surface/drawing_surface.h"

namespace norvane {

// CRC-32 (the PNG and zlib polynomial) of bytes.
std::uint32_t Crc32(std::span<const std::uint8_t> bytes);

// The screen of the surface as an 8-bit RGB PNG; each 5- or 6-bit channel is
// widened by repeating its top bits. Empty when the surface has no buffer.
std::vector<std::uint8_t> EncodePng(const DrawingSurface& surface);

// Writes EncodePng to path (through a temporary file). False on failure.
bool WritePng(const DrawingSurface& surface, const std::string& path);

}  // namespace norvane
