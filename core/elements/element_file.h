#pragma once
#include <string>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"

namespace norvane {

// Parses element-file text into the catalogue and shows "Data of %d
// satellites successfully read from %s." titled "Info.". Returns the count.
int readElementFile(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path);

// Reads at most 33301 bytes of the file at path and hands them to
// readElementFile. False, after "I can't open the file!", when the file cannot
// be opened; a failing read shows "Read failed!" and parses what arrived.
bool openElementFile(Catalogue& catalogue, MessageSink& messages, const std::string& path);

}  // namespace norvane
