#pragma once
#include <string>
#include <string_view>

namespace norvane {

// Replaces the file at path with bytes: written to a temporary file in the
// same folder, flushed, then renamed over path. On any failure the previous
// file is untouched, the temporary file removed, and false returned.
bool writeFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace norvane
