#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/message_capture.h"
#include "cli/output.h"
#include "download/categories.h"
#include "download/element_download.h"
#include "download/platform_http.h"
#include "settings/memory_settings_store.h"

namespace norvane::cli {
namespace {


int runDownload(const Args& args) {
  const std::string name = required(args, "category");
  const int row = findCategory(name);
  if (row < 0) throw InputError{"--category: unknown category " + name};
  const auto http = makePlatformHttpClient();
  MessageCapture sink;
  MemorySettingsStore store;  // the user's settings file is left alone
  DownloadContext context{*http, sink, store, args.value("server").value_or(kDefaultElementServer),
                          args.value("out").value_or(documentsFolder())};
  auto catalogue = std::make_unique<Catalogue>();
  Settings settings;
  std::int32_t iridium = 0;
  DownloadTarget target{*catalogue, settings, iridium};
  const DownloadResult result = downloadCategory(row, context, target);
  sink.printErrors();
  if (result.status != DownloadStatus::Saved) return 1;
  Record record;
  record.add("count", result.count).add("path", result.path).add("iridium", iridium);
  record.print(stdout, args.json);
  return 0;
}

}  // namespace

Command downloadCommand() {
  return {"download", "download [--server URL] --category NAME [--out DIR]", {"server", "category", "out"}, {},
          runDownload, 80};
}

NORVANE_CLI_COMMAND(downloadCommand);

}  // namespace norvane::cli
