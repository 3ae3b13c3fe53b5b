#include "core/elements/element_text.h"

#include <array>

#include "core/elements/element_parser.h"
#include "core/elements/line_reader.h"
#include "core/elements/omm_csv.h"
#include "core/elements/omm_json.h"

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

void selectEverySatelliteRead(Catalogue& catalogue) {
  for (int i = 0; i < catalogue.satelliteCount && i < kSelectionFlags; ++i) {
    catalogue.selected[static_cast<std::size_t>(i)] = 1;
  }
}

int loadTwoLineText(Catalogue& catalogue, std::string_view text) {
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
  return catalogue.satelliteCount;
}

// Good records go to the next free slot until 181 are read; the slots after
// the last one keep what they held.
int loadOmmText(Catalogue& catalogue, std::string_view text, ElementFormat format) {
  int skipped = 0;
  Satellite sat;
  const OmmRecordHandler take = [&](const OmmRecord& record) {
    if (!satelliteFromOmm(record, sat)) {
      ++skipped;
      return true;
    }
    catalogue.satellites[static_cast<std::size_t>(catalogue.satelliteCount++)] = sat;
    return catalogue.satelliteCount < kCatalogueSlots;
  };
  text = text.substr(0, kMaxOmmBytes);
  if (format == ElementFormat::Csv) readOmmCsv(text, take);
  else if (readOmmJson(text, take)) ++skipped;  // the text broke off inside a record
  return skipped;
}

}  // namespace

ElementLoad loadElements(Catalogue& catalogue, std::string_view text) {
  catalogue.satelliteCount = 0;
  catalogue.selected.fill(0);
  ElementLoad load;
  load.format = detectElementFormat(text);
  if (load.format == ElementFormat::Tle) loadTwoLineText(catalogue, text);
  else load.skipped = loadOmmText(catalogue, text, load.format);
  selectEverySatelliteRead(catalogue);
  load.count = catalogue.satelliteCount;
  return load;
}

int loadElementText(Catalogue& catalogue, std::string_view text) { return loadElements(catalogue, text).count; }

}  // namespace norvane
