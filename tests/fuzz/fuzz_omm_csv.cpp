// OMM CSV text of any bytes: the reader and the record conversion, through
// the loader, and the reader alone handing every record to the conversion.
#include <cstdint>
#include <memory>
#include <string_view>

#include "core/elements/element_text.h"
#include "core/elements/omm_csv.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto catalogue = std::make_unique<norvane::Catalogue>();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  norvane::loadElements(*catalogue, text);

  norvane::Satellite sat;
  norvane::readOmmCsv(text, [&](const norvane::OmmRecord& record) {
    norvane::satelliteFromOmm(record, sat);
    return true;
  });
  return 0;
}
