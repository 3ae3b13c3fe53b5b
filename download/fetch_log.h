#pragma once
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "download/http_time.h"

namespace norvane {

// What is remembered of one URL between downloads, so that the program asks
// each server as rarely as it wants to be asked.
struct FetchRecord {
  UnixSeconds fetchedAt = 0;     // the last answer the server gave (0: never)
  UnixSeconds retryAfter = 0;    // no request before this time (0: no such wait)
  std::string lastModified;      // validators of the saved copy, sent back on the next request
  std::string etag;
  friend bool operator==(const FetchRecord&, const FetchRecord&) = default;
};

// The records of every URL fetched, by URL.
using FetchLog = std::map<std::string, FetchRecord>;

// The log's file name in the program folder.
inline constexpr const char* kFetchLogFileName = "Downloads.json";

// A log file is small; anything longer is not one.
inline constexpr std::size_t kMaxFetchLogBytes = std::size_t{256} * 1024;
// The records kept: the most recently fetched ones.
inline constexpr std::size_t kMaxFetchRecords = 200;

// The log as a JSON object {"URL": {"fetched": s, "retry_after": s, "last_modified": "...", "etag": "..."}}.
std::string encodeFetchLog(const FetchLog& log);

// The records of a JSON text as encodeFetchLog writes it. Entries of the
// wrong shape are skipped; nothing when the text is longer than
// kMaxFetchLogBytes or not a JSON object.
std::optional<FetchLog> decodeFetchLog(std::string_view text);

// The log in the file at path; empty when the file is missing or unreadable.
FetchLog loadFetchLog(const std::string& path);

// Replaces the file at path with the log (the oldest records beyond
// kMaxFetchRecords dropped); false when it could not be written.
bool saveFetchLog(const std::string& path, FetchLog log);

}  // namespace norvane
