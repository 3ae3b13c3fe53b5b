#include "ui/views/label.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <string_view>

#include "ui/surface/text.h"

namespace norvane {

void DrawLabel(DrawingSurface& surface, std::int32_t x, std::int32_t y, int length, std::uint32_t rgb,
               const char* format, ...) {
  std::array<char, kLabelSize + 1> buffer;
  buffer.fill(' ');
  std::va_list args;
  va_start(args, format);
  std::vsnprintf(buffer.data(), buffer.size(), format, args);
  va_end(args);
  Point at{x, y};
  const int drawn = length < kLabelSize ? length : kLabelSize;
  DrawText(surface, at, std::string_view(buffer.data(), static_cast<std::size_t>(drawn)), drawn, rgb, false,
           false);
}

}  // namespace norvane
