// The fetch log file and the HTTP dates of Retry-After and Last-Modified, from
// any bytes: decoded records must encode and decode to themselves.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "download/fetch_log.h"
#include "download/http_time.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  constexpr norvane::UnixSeconds kNow = 1795435200;
  if (const auto when = norvane::retryAfterTime(text, kNow)) {
    if (*when < 0) std::abort();
    (void)norvane::formatUtcMinute(*when);
  }
  if (const auto date = norvane::parseHttpDate(text)) (void)norvane::formatUtcMinute(*date);
  if (const auto log = norvane::decodeFetchLog(text)) {
    const auto again = norvane::decodeFetchLog(norvane::encodeFetchLog(*log));
    if (!again || *again != *log) std::abort();
  }
  return 0;
}
