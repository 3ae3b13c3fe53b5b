#include "core/elements/omm_epoch.h"

#include <cstddef>

namespace norvane {
namespace {

// Reads fixed-width digit groups and separators from the front of a text.
struct Cursor {
  std::string_view text;
  std::size_t at = 0;

  bool done() const { return at == text.size(); }
  bool isDigit(std::size_t i) const { return i < text.size() && text[i] >= '0' && text[i] <= '9'; }
  std::size_t digitRun() const {
    std::size_t n = 0;
    while (isDigit(at + n)) ++n;
    return n;
  }
  bool take(char c) {
    if (at >= text.size() || text[at] != c) return false;
    ++at;
    return true;
  }
  bool number(std::size_t width, int& value) {
    if (digitRun() < width) return false;
    value = 0;
    for (std::size_t i = 0; i < width; ++i) value = value * 10 + (text[at++] - '0');
    return true;
  }
  // The digits after a decimal point as a fraction; at least one digit.
  bool fraction(double& value) {
    const std::size_t n = digitRun();
    if (n == 0) return false;
    double scale = 0.1;
    value = 0;
    for (std::size_t i = 0; i < n; ++i, scale *= 0.1) value += (text[at++] - '0') * scale;
    return true;
  }
};

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int year, int month) {
  static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

// Day of year of a calendar date, or 0 when the date does not exist.
int dayOfYear(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month)) return 0;
  for (int m = 1; m < month; ++m) day += daysInMonth(year, m);
  return day;
}

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

// "hh:mm[:ss[.fff]]" as seconds of the day.
bool timeOfDay(Cursor& c, double& seconds) {
  int hour = 0, minute = 0, second = 0;
  double fraction = 0;
  if (!c.number(2, hour) || !c.take(':') || !c.number(2, minute)) return false;
  if (c.take(':')) {
    if (!c.number(2, second)) return false;
    if (c.take('.') && !c.fraction(fraction)) return false;
  }
  if (hour > 23 || minute > 59 || second > 60) return false;  // 60: a leap second
  seconds = hour * 3600.0 + minute * 60.0 + second + fraction;
  return true;
}

}  // namespace

std::optional<double> ommEpochYearDay(std::string_view text) {
  Cursor c{trimmed(text)};
  int year = 0, day = 0;
  if (c.digitRun() != 4 || !c.number(4, year) || !c.take('-')) return std::nullopt;
  if (c.digitRun() == 3) {
    if (!c.number(3, day) || day < 1 || day > (isLeapYear(year) ? 366 : 365)) return std::nullopt;
  } else {
    int month = 0, dayOfMonth = 0;
    if (c.digitRun() != 2 || !c.number(2, month) || !c.take('-') || c.digitRun() != 2 ||
        !c.number(2, dayOfMonth)) {
      return std::nullopt;
    }
    day = dayOfYear(year, month, dayOfMonth);
    if (day == 0) return std::nullopt;
  }
  double seconds = 0;
  if (c.take('T') || c.take(' ')) {
    if (!timeOfDay(c, seconds)) return std::nullopt;
  }
  c.take('Z');
  if (!c.done() || year < 1957 || year > 2056) return std::nullopt;
  return (year % 100) * 1000.0 + day + seconds / 86400.0;
}

}  // namespace norvane
