#pragma once
#include <string_view>

#include "core/elements/omm_csv.h"
#include "core/elements/omm_record.h"

namespace norvane {

// Reads OMM JSON text: an array of objects, one record each, or a single
// object. Keys the reader does not know are ignored, null counts as absent,
// numbers may also come as strings; object or array values, and elements of
// the array that are not objects, are passed over. Reading stops at the first
// syntax error, keeping the records before it. Returns true when the text
// ended or broke off inside a record, which is then not handed over.
bool readOmmJson(std::string_view text, const OmmRecordHandler& handler);

}  // namespace norvane
