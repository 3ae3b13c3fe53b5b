// Element-file text of any bytes: the line reader and the element parser over
// the whole text, and the parser alone on three raw slices of it.
#include <cstdint>
#include <memory>
#include <string_view>

#include "core/elements/element_parser.h"
#include "core/elements/element_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto catalogue = std::make_unique<norvane::Catalogue>();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  norvane::loadElementText(*catalogue, text);

  const std::size_t third = size / 3;
  norvane::parseElementSet(*catalogue, text.substr(0, third), text.substr(third, third),
                           text.substr(2 * third), static_cast<int>(size % 181));
  return 0;
}
