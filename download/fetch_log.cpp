#include "download/fetch_log.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <vector>

#include "core/platform/atomic_file.h"

namespace norvane {

namespace {

using Json = nlohmann::json;

constexpr std::size_t kMaxHeaderText = 512;  // a validator longer than this is not kept

UnixSeconds timeField(const Json& entry, const char* name) {
  const auto it = entry.find(name);
  if (it == entry.end() || !it->is_number_integer()) return 0;
  return it->get<UnixSeconds>();
}

std::string textField(const Json& entry, const char* name) {
  const auto it = entry.find(name);
  if (it == entry.end() || !it->is_string()) return {};
  const auto& text = it->get_ref<const std::string&>();
  return text.size() <= kMaxHeaderText ? text : std::string();
}

void dropOldest(FetchLog& log) {
  if (log.size() <= kMaxFetchRecords) return;
  std::vector<std::pair<UnixSeconds, std::string>> ages;
  for (const auto& [url, record] : log) ages.emplace_back(std::max(record.fetchedAt, record.retryAfter), url);
  std::sort(ages.begin(), ages.end());
  const std::size_t excess = log.size() - kMaxFetchRecords;
  for (std::size_t i = 0; i < excess; ++i) log.erase(ages[i].second);
}

}  // namespace

std::string encodeFetchLog(const FetchLog& log) {
  Json root = Json::object();
  for (const auto& [url, record] : log) {
    root[url] = {{"fetched", record.fetchedAt},
                 {"retry_after", record.retryAfter},
                 {"last_modified", record.lastModified},
                 {"etag", record.etag}};
  }
  // Header texts from a server may hold any bytes: invalid UTF-8 is replaced, never thrown over.
  return root.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<FetchLog> decodeFetchLog(std::string_view text) {
  if (text.size() > kMaxFetchLogBytes) return std::nullopt;
  const Json root = Json::parse(text.begin(), text.end(), nullptr, false);
  if (root.is_discarded() || !root.is_object()) return std::nullopt;
  FetchLog log;
  for (const auto& [url, entry] : root.items()) {
    if (!entry.is_object() || url.empty()) continue;
    FetchRecord record;
    record.fetchedAt = timeField(entry, "fetched");
    record.retryAfter = timeField(entry, "retry_after");
    record.lastModified = textField(entry, "last_modified");
    record.etag = textField(entry, "etag");
    log[url] = record;
  }
  dropOldest(log);
  return log;
}

FetchLog loadFetchLog(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  std::string text(kMaxFetchLogBytes + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return decodeFetchLog(text).value_or(FetchLog{});
}

bool saveFetchLog(const std::string& path, FetchLog log) {
  dropOldest(log);
  return writeFileAtomically(path, encodeFetchLog(log));
}

}  // namespace norvane
