#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "download/http_client.h"
#include "settings/settings.h"

namespace norvane {

inline constexpr std::string_view kDownloadUserAgent =
    "Mozilla/4.0 (compatible; MSIE 4.01; Windows NT Windows CE)";
// One read of at most this many bytes: a longer file is cut.
inline constexpr std::size_t kDownloadMaxBytes = 33301;

// The services and places a download uses.
struct DownloadContext {
  HttpClient& http;
  MessageSink& messages;
  SettingsStore& store;         // the last-file group is saved here
  std::string serverBase;       // "http://host[:port][/prefix]" or https
  std::string documentsFolder;  // where the copy "NAME.txt" goes
  // Told the number of bytes received so far while the body arrives.
  std::function<void(std::size_t)> progress = {};
};

// The program state a download changes.
struct DownloadTarget {
  Catalogue& catalogue;
  Settings& settings;         // "flares" may be switched off (not saved); "Last_Open" names the copy
  std::int32_t& iridiumMark;  // 1 after the Iridium row, 0 after any other
};

enum class DownloadStatus {
  NotStarted,   // the row is outside the table
  NoInternet,   // "Can't connect to Internet!"
  NoUrl,        // "Can't connect to url!"
  ReadError,    // "Error reading data!"
  Cancelled,    // stopped by the user or by quitting: nothing shown, loaded or saved
  LoadedNotSaved,  // catalogue loaded, copy not written ("Error saving data to My Documents!")
  Saved,
};

struct DownloadResult {
  DownloadStatus status = DownloadStatus::NotStarted;
  int count = 0;     // satellites loaded
  std::string url;   // what was fetched
  std::string path;  // where the copy was (to be) saved
};

// The server base with "/NORAD/elements/NAME.txt" after it (trailing slashes of the base dropped).
std::string categoryUrl(std::string_view serverBase, std::string_view fileName);

// "NAME.txt" in the documents folder.
std::string downloadPath(std::string_view documentsFolder, std::string_view fileName);

// Fetches the category of that row, loads it as the catalogue and saves a copy,
// showing every failure through the message sink. A failed fetch loads and
// writes nothing; a failed save never leaves a partial file in place.
DownloadResult downloadCategory(int row, DownloadContext& context, DownloadTarget& target);

// Names the copy as the last opened file, saves the last-file group, then writes
// the bytes. 1 on success; 0 after "I can't open the file!" or "Save failed!".
int saveDownloadedData(DownloadContext& context, Settings& settings, std::string_view fileName,
                       std::string_view bytes);

}  // namespace norvane
