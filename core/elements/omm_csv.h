#pragma once
#include <functional>
#include <string_view>

#include "core/elements/omm_record.h"

namespace norvane {

// Receives each record a reader finds; returning false stops the reading.
using OmmRecordHandler = std::function<bool(const OmmRecord&)>;

// Reads OMM CSV text: an optional UTF-8 byte-order mark, a header line naming
// the columns in any order, then one record per line. Fields follow RFC 4180
// (quotes around fields holding commas, quotes or line ends; "" for a quote),
// lines end in CRLF or LF, blank lines are passed over, columns the reader
// does not know are ignored, and a line short of columns lacks their fields.
void readOmmCsv(std::string_view text, const OmmRecordHandler& handler);

}  // namespace norvane
