#include "core/elements/element_list.h"

#include <algorithm>
#include <memory>
#include <string>

#include "core/elements/catalogue.h"
#include "core/elements/element_parser.h"

namespace norvane {
namespace {

std::string_view trimmed(std::string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.remove_suffix(1);
  return line;
}

}  // namespace

std::vector<Satellite> readElementSets(std::string_view text) {
  std::vector<Satellite> sats;
  auto scratch = std::make_unique<Catalogue>();
  std::string_view name, line1;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.size() >= 2 && line[0] == '1' && line[1] == ' ') {
      line1 = line;
    } else if (line.size() >= 2 && line[0] == '2' && line[1] == ' ' && !line1.empty()) {
      // The parser's line 1 columns are those of a line following a name line's line feed.
      if (parseElementSet(*scratch, name, "\n" + std::string(line1), line, 0)) sats.push_back(scratch->satellites[0]);
      line1 = {};
      name = {};
    } else {
      name = line.substr(0, std::min<std::size_t>(line.size(), kSatelliteNameSize - 1));
      line1 = {};
    }
  }
  return sats;
}

}  // namespace norvane
