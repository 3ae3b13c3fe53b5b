// Element text of any length and any bytes through the unlimited reader.
#include <cstdint>
#include <string_view>

#include "core/elements/element_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto sats = norvane::readElementSets(text);
  // At most one set per two lines of text.
  if (sats.size() > size / 4 + 1) __builtin_trap();
  return 0;
}
