#include "download/element_source.h"

#include "core/text/format.h"

namespace norvane {

namespace {

void replaceAll(std::string& text, std::string_view field, std::string_view value) {
  for (std::size_t at = text.find(field); at != std::string::npos; at = text.find(field, at + value.size())) {
    text.replace(at, field.size(), value);
  }
}

}  // namespace

bool isServerTemplate(std::string_view server) { return server.find(kGroupField) != std::string_view::npos; }

std::string categoryUrl(std::string_view server, std::string_view fileName) {
  if (isServerTemplate(server)) {
    std::string url(server);
    replaceAll(url, kGroupField, fileName);
    replaceAll(url, kFormatField, "tle");
    return url;
  }
  while (!server.empty() && server.back() == '/') server.remove_suffix(1);
  return std::string(server) + format("/NORAD/elements/%s.txt", std::string(fileName).c_str());
}

std::string serverHomePage(std::string_view server) {
  const std::size_t scheme = server.find("://");
  if (scheme == std::string_view::npos) return std::string(server);
  const std::size_t path = server.find_first_of("/?#", scheme + 3);
  return std::string(server.substr(0, path)) + "/";
}

}  // namespace norvane
