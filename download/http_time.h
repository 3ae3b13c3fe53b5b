#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace norvane {

// Seconds since 1970-01-01 00:00 UTC.
using UnixSeconds = std::int64_t;

// An HTTP date such as "Sun, 06 Nov 1994 08:49:37 GMT" (the weekday is not
// checked); nothing for any other text.
std::optional<UnixSeconds> parseHttpDate(std::string_view text);

// When a Retry-After header allows the next request: now plus its seconds, or
// its date; nothing when the header is empty or neither form.
std::optional<UnixSeconds> retryAfterTime(std::string_view header, UnixSeconds now);

// "2026-11-23 20:15 UTC".
std::string formatUtcMinute(UnixSeconds time);

}  // namespace norvane
