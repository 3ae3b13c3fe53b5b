#include "core/astro/julian_date.h"

#include <array>
#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {

namespace {
constexpr std::array<int, 12> kMonthDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// A whole number as int; NaN and values beyond the int range give 0.
int wholeToInt(double x) {
  return (x > -2147483648.0 && x < 2147483648.0) ? static_cast<int>(x) : 0;
}

bool isLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}
}  // namespace

double JulianDateOfYear(double year) {
  if (year <= 1582.0 || year > 3000.0) return kInvalidJulianDate;
  const int y = static_cast<int>(Int(year - 1.0));
  const int a = static_cast<int>(Int(y * 0.01));
  const int b = 2 - a + static_cast<int>(Int(a * 0.25));
  return 1720994.5 + Int(365.25 * y) + 428 + b;
}

double JulianDateOfDate(int year, int month, int day, int hour, int minute, int second) {
  const double jd0 = JulianDateOfYear(year);
  if (day < 0 || day >= 32 || jd0 == kInvalidJulianDate) return kInvalidJulianDate;
  int dayOfYear = day;
  // Months outside 1-12 count the months of the table that exist before them.
  for (int m = 1; m < month && m <= 12; ++m) dayOfYear += kMonthDays[static_cast<std::size_t>(m - 1)];
  if (isLeapYear(year) && month > 1) dayOfYear += 1;
  const double seconds = hour * 3600.0 + minute * 60.0 + second;
  return jd0 + dayOfYear + seconds / 86400.0;
}

void CalendarOfJulianDate(double jd, int& year, int& month, int& day) {
  const double x = jd + 0.5;
  const double z = std::floor(x);
  const double f = x - z;
  double a = z;
  if (z >= 2299161.0) {
    const double alpha = std::floor((z - 1867216.25) / 36524.25);
    a = z + 1.0 + alpha - std::floor(alpha / 4.0);
  }
  const double b = a + 1524.0;
  const double c = std::floor((b - 122.1) / 365.25);
  const double d = std::floor(365.25 * c);
  const double e = std::floor((b - d) / 30.6001);
  day = wholeToInt(b - d - std::floor(30.6001 * e) + f);
  month = wholeToInt(e < 14.0 ? e - 1.0 : e - 13.0);
  year = wholeToInt(month >= 3 ? c - 4716.0 : c - 4715.0);
}

void TimeOfDay(double jd, int& hour, int& minute, int& second) {
  const double x = jd + 0.5;
  const int s = wholeToInt((x - std::floor(x)) * 86400.0 + 0.5);
  hour = s / 3600;
  minute = (s / 60) % 60;
  second = s % 60;
}

}  // namespace norvane
