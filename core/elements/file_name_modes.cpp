#include "core/elements/file_name_modes.h"

namespace norvane {

std::string_view fileNameOf(std::string_view path) {
  const std::size_t cut = path.find_last_of("/\\");
  return cut == std::string_view::npos ? path : path.substr(cut + 1);
}

bool isIridiumFileName(std::string_view path, IridiumMatch match) {
  const std::string_view name = fileNameOf(path);
  if (name.substr(0, 7) == "iridium") return true;
  return match == IridiumMatch::EitherCaseFirstLetter && name.substr(0, 7) == "Iridium";
}

bool isGpsFileName(std::string_view path) { return fileNameOf(path).substr(0, 3) == "gps"; }

LinkFrequencies frequenciesForFile(std::string_view path) {
  if (isGpsFileName(path)) return {1227.6, 1575.42};
  return {130.0, 138.0};
}

}  // namespace norvane
