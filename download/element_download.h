#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/elements/element_formats.h"
#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "download/element_source.h"
#include "download/http_client.h"
#include "download/http_time.h"
#include "settings/settings.h"

namespace norvane {

inline constexpr std::string_view kDownloadUserAgent =
    "Mozilla/4.0 (compatible; MSIE 4.01; Windows NT Windows CE)";
// Element text is read in one piece of at most this many bytes: a longer file is cut.
inline constexpr std::size_t kDownloadMaxBytes = 33301;
// The element server's data change at most this often, and it refuses to hand
// the same file to one client more often.
inline constexpr UnixSeconds kRefetchSeconds = UnixSeconds{2} * 3600;

// The services and places a download uses.
struct DownloadContext {
  HttpClient& http;
  MessageSink& messages;
  SettingsStore& store;         // the last-file group is saved here
  std::string serverBase;       // a base URL or a URL template (see element_source.h), http or https
  std::string documentsFolder;  // where the copy "NAME.txt" goes
  // Told the number of bytes received so far while the body arrives.
  std::function<void(std::size_t)> progress = {};
  // The file that remembers, per URL, the last fetch, its validators and any
  // requested wait. Empty: nothing is remembered and every download is sent.
  std::string fetchLogPath = {};
  // The time now; the system's clock when empty.
  std::function<UnixSeconds()> now = {};
};

// The program state a download changes.
struct DownloadTarget {
  Catalogue& catalogue;
  Settings& settings;         // "flares" may be switched off (not saved); "Last_Open" names the copy
  std::int32_t& iridiumMark;  // 1 after the Iridium row, 0 after any other
};

enum class DownloadStatus {
  NotStarted,      // the row is outside the table
  NoInternet,      // "Can't connect to Internet!"
  NoUrl,           // "Can't connect to url!"
  ReadError,       // "Error reading data!"
  Cancelled,       // stopped by the user or by quitting: nothing shown, loaded or saved
  Refused,         // the server answered 403 or 429: nothing loaded, the saved copy kept
  Unusable,        // a reply without element sets: nothing loaded or saved
  Waiting,         // not sent (too soon after the last fetch) and there is no saved copy to load
  SavedCopy,       // not sent, or answered 304: the saved copy was loaded
  LoadedNotSaved,  // catalogue loaded, copy not written ("Error saving data to My Documents!")
  Saved,
};

struct DownloadResult {
  DownloadStatus status = DownloadStatus::NotStarted;
  int count = 0;       // satellites loaded
  int skipped = 0;     // entries of the text that were not loaded
  ElementFormat format = ElementFormat::Tle;  // of the text loaded
  bool fetched = false;  // the server sent the text loaded (not the saved copy)
  UnixSeconds nextRequest = 0;  // the earliest time the URL will be asked again (0: any time)
  std::string url;     // what was (or would have been) fetched
  std::string path;    // where the copy was (to be) saved
};

// "NAME.txt" in the documents folder.
std::string downloadPath(std::string_view documentsFolder, std::string_view fileName);

// Fetches the category of that row, loads it as the catalogue and saves a copy,
// showing every failure through the message sink. A failed fetch, or a reply
// that holds no element sets, loads and writes nothing. With a fetch log, a
// URL is asked at most once in kRefetchSeconds (and not before a wait the
// server asked for), the saved copy is loaded instead, and later requests are
// conditional on the saved copy's validators.
DownloadResult downloadCategory(int row, DownloadContext& context, DownloadTarget& target);

// Names the copy as the last opened file, saves the last-file group, then writes
// the bytes. 1 on success; 0 after "I can't open the file!" or "Save failed!".
int saveDownloadedData(DownloadContext& context, Settings& settings, std::string_view fileName,
                       std::string_view bytes);

}  // namespace norvane
