// Downloaded bodies of any bytes: the whole download path (the body judged,
// loaded as the catalogue, saved as the copy in a scratch folder, the fetch
// log kept there too), with the fetch's outcome, its HTTP status and the
// category row taken from the first three bytes.
#include <cstdint>
#include <memory>
#include <string>

#include "download/element_download.h"
#include "settings/memory_settings_store.h"
#include "tests/common/test_support.h"

namespace {

class CannedHttp : public norvane::HttpClient {
 public:
  norvane::HttpResponse response;
  bool open(const std::string&) override { return true; }
  norvane::HttpResponse fetch(const norvane::HttpRequest& request) override {
    norvane::HttpResponse r = response;
    if (r.body.size() > request.maxBytes) r.body.resize(request.maxBytes);
    return r;
  }
};

const std::string& scratchFolder() {
  static const norvane::testing::TempFolder folder;
  return folder.path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  static auto catalogue = std::make_unique<norvane::Catalogue>();
  CannedHttp http;
  http.response.outcome = static_cast<norvane::HttpOutcome>(data[0] % 5);
  static constexpr int kStatuses[4] = {200, 304, 403, 429};
  http.response.status = kStatuses[data[2] % 4];
  http.response.retryAfter = data[2] & 0x80 ? "120" : "";
  http.response.truncated = (data[2] & 0x40) != 0;
  http.response.body.assign(reinterpret_cast<const char*>(data + 3), size - 3);
  norvane::testing::QuietSink sink;
  norvane::MemorySettingsStore store;
  norvane::DownloadContext context{http, sink, store, "http://127.0.0.1:9/?GROUP={group}", scratchFolder()};
  // Every run is past the last one's waits, so that each body is judged.
  static norvane::UnixSeconds now = 1795435200;
  now += norvane::UnixSeconds{400} * 86400;
  context.fetchLogPath = scratchFolder() + "/Downloads.json";
  context.now = [] { return now; };
  norvane::Settings settings;
  std::int32_t iridium = 0;
  norvane::DownloadTarget target{*catalogue, settings, iridium};
  norvane::downloadCategory(data[1] % 40, context, target);
  return 0;
}
