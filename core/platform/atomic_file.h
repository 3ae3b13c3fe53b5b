#pragma once
#include <string>
#include <string_view>

namespace norvane {

enum class FileWrite { Written, CannotOpen, WriteFailed };

// Writes bytes to a new file beside path and renames it over path, so path
// holds either its old content or all of the new one. CannotOpen when no file
// can be created there; WriteFailed when writing, syncing or renaming fails
// (the new file is then removed and path is untouched).
FileWrite replaceFile(const std::string& path, std::string_view bytes);

// replaceFile that only tells whether the new content is in place.
inline bool writeFileAtomically(const std::string& path, std::string_view bytes) {
  return replaceFile(path, bytes) == FileWrite::Written;
}

}  // namespace norvane
