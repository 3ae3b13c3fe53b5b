#include "download/http_time.h"

#include <array>

#include "core/text/format.h"

namespace norvane {

namespace {

constexpr UnixSeconds kSecondsPerDay = 86400;
// Later than this is not a date a server means: it only risks overflow.
constexpr UnixSeconds kLongestWait = 400 * kSecondsPerDay;

// Dates outside these years are not ones a server means.
constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2999;

bool isLeap(std::int64_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(std::int64_t year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

int daysInYear(std::int64_t year) { return isLeap(year) ? 366 : 365; }

// Days from 1970-01-01 to a date of the years above (month 1-12, day valid).
std::int64_t daysSinceEpoch(int year, int month, int day) {
  std::int64_t days = 0;
  for (int y = kFirstYear; y < year; ++y) days += daysInYear(y);
  for (int m = 1; m < month; ++m) days += daysInMonth(year, m);
  return days + day - 1;
}

struct Civil {
  std::int64_t year;
  int month, day;
};

// The date days after 1970-01-01 (days >= 0).
Civil dateOf(std::int64_t days) {
  Civil date{kFirstYear, 1, 1};
  while (days >= daysInYear(date.year)) days -= daysInYear(date.year++);
  while (days >= daysInMonth(date.year, date.month)) days -= daysInMonth(date.year, date.month++);
  date.day = static_cast<int>(days) + 1;
  return date;
}

// Reads exactly count digits at text[at...]; advances at.
std::optional<int> digits(std::string_view text, std::size_t& at, std::size_t count) {
  if (text.size() < at + count) return std::nullopt;
  int value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const char c = text[at + i];
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  at += count;
  return value;
}

bool literal(std::string_view text, std::size_t& at, std::string_view expected) {
  if (text.substr(at, expected.size()) != expected) return false;
  at += expected.size();
  return true;
}

int monthNamed(std::string_view name) {
  static constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (kMonths[i] == name) return static_cast<int>(i) + 1;
  }
  return 0;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<UnixSeconds> parseHttpDate(std::string_view text) {
  text = trimmed(text);
  std::size_t at = 0;
  // "Www, " then "DD Mon YYYY HH:MM:SS GMT"
  if (text.size() < 5 || text[3] != ',' || text[4] != ' ') return std::nullopt;
  at = 5;
  const auto day = digits(text, at, 2);
  if (!day || !literal(text, at, " ")) return std::nullopt;
  const int month = monthNamed(text.substr(at, 3));
  at += 3;
  if (month == 0 || !literal(text, at, " ")) return std::nullopt;
  const auto year = digits(text, at, 4);
  if (!year || !literal(text, at, " ")) return std::nullopt;
  const auto hour = digits(text, at, 2);
  if (!hour || !literal(text, at, ":")) return std::nullopt;
  const auto minute = digits(text, at, 2);
  if (!minute || !literal(text, at, ":")) return std::nullopt;
  const auto second = digits(text, at, 2);
  if (!second || !literal(text, at, " GMT") || at != text.size()) return std::nullopt;
  if (*year < kFirstYear || *year > kLastYear || *day < 1 || *day > daysInMonth(*year, month) || *hour > 23 ||
      *minute > 59 || *second > 60) {
    return std::nullopt;
  }
  return daysSinceEpoch(*year, month, *day) * kSecondsPerDay + UnixSeconds{*hour} * 3600 + UnixSeconds{*minute} * 60 +
         *second;
}

std::optional<UnixSeconds> retryAfterTime(std::string_view header, UnixSeconds now) {
  header = trimmed(header);
  if (header.empty()) return std::nullopt;
  if (header.find_first_not_of("0123456789") == std::string_view::npos) {
    UnixSeconds seconds = 0;
    for (const char c : header) {
      seconds = seconds * 10 + (c - '0');
      if (seconds > kLongestWait) return now + kLongestWait;
    }
    return now + seconds;
  }
  const auto date = parseHttpDate(header);
  if (!date) return std::nullopt;
  if (*date > now + kLongestWait) return now + kLongestWait;
  return *date;
}

std::string formatUtcMinute(UnixSeconds time) {
  // Before 1970 or beyond the last year is clamped: no server time lies there.
  const UnixSeconds last = (daysSinceEpoch(kLastYear, 12, 31) + 1) * kSecondsPerDay - 1;
  time = time < 0 ? 0 : (time > last ? last : time);
  const std::int64_t days = time / kSecondsPerDay;
  const std::int64_t second = time % kSecondsPerDay;
  const Civil date = dateOf(days);
  return format("%04lld-%02d-%02d %02d:%02d UTC", static_cast<long long>(date.year), date.month, date.day,
                static_cast<int>(second / 3600), static_cast<int>(second % 3600 / 60));
}

}  // namespace norvane
