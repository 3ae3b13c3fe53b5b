#pragma once
#include <cstdint>
#include <span>
#include <string>

#include "ui/surface/drawing_surface.h"
#include "ui/surface/image.h"

namespace norvane {

// Largest bitmap side accepted, in pixels.
constexpr std::int32_t kMaxBitmapSide = 4096;

// Decodes a 24-bit uncompressed BMP file (bottom-up or top-down rows) into an
// image in the surface's pixel format. False, with image emptied, for anything
// else or for a file too short for what its headers promise.
bool DecodeBitmap(std::span<const std::uint8_t> bytes, const DrawingSurface& surface, Image& image);

// Reads the file (at most 64 MiB) and decodes it.
bool ReadBitmapFile(const std::string& path, const DrawingSurface& surface, Image& image);

}  // namespace norvane
