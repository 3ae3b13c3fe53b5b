#include <cstdlib>

#include "download/platform_http.h"

namespace norvane {

namespace {
// Without a network layer no session can be opened.
class NoHttpClient : public HttpClient {
 public:
  bool open(const std::string&) override { return false; }
  HttpResponse fetch(const HttpRequest&) override { return {}; }
};
}  // namespace

std::unique_ptr<HttpClient> makePlatformHttpClient(const HttpTimeouts&) {
  return std::make_unique<NoHttpClient>();
}

std::string documentsFolder() {
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : ".") + "/Documents";
}

std::string programFolder() {
  const char* home = std::getenv("NORVANE_HOME");
  if (home != nullptr && home[0] != '\0') return home;
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] != '\0') return std::string(data) + "/Norvane";
  const char* user = std::getenv("HOME");
  return std::string(user != nullptr ? user : ".") + "/.local/share/Norvane";
}

}  // namespace norvane
