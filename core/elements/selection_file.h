#pragma once
#include <cstddef>
#include <string>

#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"

namespace norvane {

// Name of the selection file in the program folder.
inline constexpr const char* kSelectionFileName = "Select.bol";
// 180 little-endian 32-bit flags, nothing else.
inline constexpr std::size_t kSelectionFileBytes = std::size_t{4} * kSelectionFlags;

// Path of the selection file in programFolder; empty, after "Incorrect
// Norvane pragram path!", when there is no program folder.
std::string selectionFilePath(const std::string& programFolder, MessageSink& messages);

// Reads the flags into catalogue.selected. A missing file changes nothing and
// gives false; a short file fills the flags it holds.
bool readSelectionFile(const std::string& path, Catalogue& catalogue);

// Writes the 180 flags through a temporary file renamed over the old one, so a
// failed write leaves the previous file whole. False when it failed.
bool writeSelectionFile(const std::string& path, const Catalogue& catalogue);

}  // namespace norvane
