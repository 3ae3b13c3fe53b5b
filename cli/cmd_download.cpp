#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/message_capture.h"
#include "cli/output.h"
#include "core/elements/element_formats.h"
#include "download/categories.h"
#include "download/element_download.h"
#include "download/fetch_log.h"
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
  // The window's fetch log: one pace for the server, whichever program asks.
  const std::string folder = programFolder();
  if (!folder.empty()) context.fetchLogPath = folder + "/" + kFetchLogFileName;
  auto catalogue = std::make_unique<Catalogue>();
  Settings settings;
  std::int32_t iridium = 0;
  DownloadTarget target{*catalogue, settings, iridium};
  const DownloadResult result = downloadCategory(row, context, target);
  sink.printErrors();
  if (result.status == DownloadStatus::SavedCopy && !sink.notes.empty()) {
    std::fprintf(stderr, "%s\n", sink.notes.front().c_str());  // why the saved copy was loaded
  }
  if (result.status != DownloadStatus::Saved && result.status != DownloadStatus::SavedCopy) return 1;
  Record record;
  record.add("format", elementFormatName(result.format))
      .add("count", result.count)
      .add("skipped", result.skipped)
      .add("path", result.path)
      .add("iridium", iridium)
      .addBool("fetched", result.fetched);
  record.print(stdout, args.json);
  return 0;
}

}  // namespace

Command downloadCommand() {
  return {"download", "download [--server URL|TEMPLATE] --category NAME [--out DIR]", {"server", "category", "out"},
          {}, runDownload, 80};
}

NORVANE_CLI_COMMAND(downloadCommand);

}  // namespace norvane::cli
