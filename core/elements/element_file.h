#pragma once
#include <cstdio>
#include <string>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/elements/element_text.h"
#include "core/platform/message_sink.h"

namespace norvane {

// Parses element-file text (element lines, OMM CSV or OMM JSON) into the
// catalogue and shows "Data of %d satellites successfully read from %s."
// titled "Info.", with a second line when OMM records were skipped. Returns
// the count.
int readElementFile(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path);
// readElementFile, telling the format and the skipped records too.
ElementLoad readElements(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                         const std::string& path);

// Reads the file at path, at most 33301 bytes of element lines or
// kMaxOmmBytes of OMM text, and hands them to readElementFile. False, after
// "I can't open the file!", when the file cannot be opened; a failing read
// shows "Read failed!" and parses what arrived. *load, when given, receives
// what the read found.
bool openElementFile(Catalogue& catalogue, MessageSink& messages, const std::string& path,
                     ElementLoad* load = nullptr);

// Reads an element file's bytes from an open file: up to kMaxOmmBytes, cut
// to 33301 when they are element lines. False when the read failed (the
// bytes that arrived are kept).
bool readElementBytes(std::FILE* file, std::string& text);

// A load message with the line about skipped OMM records added below it,
// when there were any.
std::string withSkippedLine(std::string message, int skipped);

}  // namespace norvane
