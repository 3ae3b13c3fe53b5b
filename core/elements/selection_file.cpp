#include "core/elements/selection_file.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "core/platform/atomic_file.h"

namespace norvane {

std::string selectionFilePath(const std::string& programFolder, MessageSink& messages) {
  if (programFolder.empty()) {
    messages.show("Incorrect Norvane pragram path!", "", MessageIcon::Stop);
    return {};
  }
  const bool hasSlash = programFolder.back() == '/';
  return programFolder + (hasSlash ? "" : "/") + kSelectionFileName;
}

bool readSelectionFile(const std::string& path, Catalogue& catalogue) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return false;
  std::array<unsigned char, kSelectionFileBytes> bytes{};
  const std::size_t got = std::fread(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
  for (std::size_t i = 0; i < got / 4; ++i) {
    const std::uint32_t v = bytes[4 * i] | bytes[4 * i + 1] << 8 | bytes[4 * i + 2] << 16 |
                            static_cast<std::uint32_t>(bytes[4 * i + 3]) << 24;
    catalogue.selected[i] = static_cast<std::int32_t>(v);
  }
  return true;
}

bool writeSelectionFile(const std::string& path, const Catalogue& catalogue) {
  std::array<char, kSelectionFileBytes> bytes{};
  for (std::size_t i = 0; i < catalogue.selected.size(); ++i) {
    const auto v = static_cast<std::uint32_t>(catalogue.selected[i]);
    for (std::size_t b = 0; b < 4; ++b) bytes[4 * i + b] = static_cast<char>((v >> (8 * b)) & 0xFF);
  }
  return writeFileAtomically(path, std::string_view(bytes.data(), bytes.size()));
}

}  // namespace norvane
