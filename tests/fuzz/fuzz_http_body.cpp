// Downloaded bodies of any bytes: the whole download path (the body cut to one
// read, loaded as the catalogue, saved as the copy in a scratch folder), with
// the fetch's outcome and the category row taken from the first two bytes.
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
  if (size < 2) return 0;
  static auto catalogue = std::make_unique<norvane::Catalogue>();
  CannedHttp http;
  http.response.outcome = static_cast<norvane::HttpOutcome>(data[0] % 3);
  http.response.body.assign(reinterpret_cast<const char*>(data + 2), size - 2);
  norvane::testing::QuietSink sink;
  norvane::MemorySettingsStore store;
  norvane::DownloadContext context{http, sink, store, "http://127.0.0.1:9", scratchFolder()};
  norvane::Settings settings;
  std::int32_t iridium = 0;
  norvane::DownloadTarget target{*catalogue, settings, iridium};
  norvane::downloadCategory(data[1] % 40, context, target);
  return 0;
}
