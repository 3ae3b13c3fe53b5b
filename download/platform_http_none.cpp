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

}  // namespace norvane
