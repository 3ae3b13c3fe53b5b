// Skin files of any bytes through the bitmap decoder.
#include <cstdint>
#include <span>

#include "ui/surface/bitmap_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const norvane::DrawingSurface surface = norvane::MakeOffscreenSurface();
  norvane::Image image;
  norvane::DecodeBitmap(std::span<const std::uint8_t>(data, size), surface, image);
  return 0;
}
