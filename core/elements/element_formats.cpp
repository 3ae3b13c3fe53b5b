#include "core/elements/element_formats.h"

namespace norvane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view withoutByteOrderMark(std::string_view text) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
  return text;
}

}  // namespace

ElementFormat detectElementFormat(std::string_view text) {
  text = withoutByteOrderMark(text);
  std::size_t first = 0;
  while (first < text.size() && isBlank(text[first])) ++first;
  if (first < text.size() && (text[first] == '[' || text[first] == '{')) return ElementFormat::Json;
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const bool namesColumns =
      line.find("NORAD_CAT_ID") != std::string_view::npos || line.find("OBJECT_NAME") != std::string_view::npos;
  if (namesColumns && line.find(',') != std::string_view::npos) return ElementFormat::Csv;
  return ElementFormat::Tle;
}

const char* elementFormatName(ElementFormat format) {
  switch (format) {
    case ElementFormat::Csv: return "csv";
    case ElementFormat::Json: return "json";
    case ElementFormat::Tle: break;
  }
  return "tle";
}

}  // namespace norvane
