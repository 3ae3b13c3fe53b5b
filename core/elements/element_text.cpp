#include "core/elements/element_text.h"

#include <array>

#include "core/elements/element_parser.h"
#include "core/elements/line_reader.h"

namespace norvane {

namespace {
// One entry's line buffers: 25 + 80 + 80 bytes.
constexpr std::uint32_t kEntryBufferBytes = 185;
constexpr std::uint32_t kLongTextLength = 33300;

std::uint32_t usableLength(std::string_view text) {
  const auto length = static_cast<std::uint32_t>(
      text.size() < kRewindLength ? text.size() : kRewindLength - 1);
  return length / kEntryBufferBytes >= kCatalogueSlots ? kLongTextLength : length;
}
}  // namespace

int loadElementText(Catalogue& catalogue, std::string_view text) {
  catalogue.satelliteCount = 0;
  catalogue.selected.fill(0);
  LineReader reader;
  const std::uint32_t length = usableLength(text);  // never more than the text holds
  std::array<char, kNameLineCapacity> name{};
  std::array<char, kElementLineCapacity> line1{};
  std::array<char, kElementLineCapacity> line2{};
  for (int slot = 0; slot < kCatalogueSlots; ++slot) {
    if (!readLine(reader, text.data(), name.data(), name.size(), length)) break;
    if (!readLine(reader, text.data(), line1.data(), line1.size(), length)) break;
    if (!readLine(reader, text.data(), line2.data(), line2.size(), length)) break;
    const LineBuffer n(name.data(), name.size());
    const LineBuffer l1(line1.data(), line1.size());
    const LineBuffer l2(line2.data(), line2.size());
    if (!parseElementSet(catalogue, n, l1, l2, slot)) break;
    ++catalogue.satelliteCount;
  }
  for (int i = 0; i < catalogue.satelliteCount && i < kSelectionFlags; ++i) {
    catalogue.selected[static_cast<std::size_t>(i)] = 1;
  }
  return catalogue.satelliteCount;
}

}  // namespace norvane
