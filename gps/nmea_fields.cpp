#include "gps/nmea_fields.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace norvane::nmea {
namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// "%d" on a short zero-terminated text: wraps like a 64-bit long stored in an int.
int ParseInt(const char* text) {
  char* end = nullptr;
  const long long value = std::strtoll(text, &end, 10);
  return end == text ? 0 : static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

// "%Lf" stored in a double; a value beyond the double range becomes infinite.
double ParseDouble(const char* text) {
  char* end = nullptr;
  const long double value = std::strtold(text, &end);
  if (end == text) return 0.0;
  if (std::isnan(value)) return static_cast<double>(value);
  if (value > DBL_MAX) return HUGE_VAL;
  if (value < -DBL_MAX) return -HUGE_VAL;
  return static_cast<double>(value);
}

// Two characters of a field from position at, read with "%d".
int PairAt(const char (&field)[kFieldSize], std::size_t at) {
  const char pair[3] = {field[at], field[at + 1], '\0'};
  return ParseInt(pair);
}

}  // namespace

bool ChecksumMatches(Sentence s) {
  std::size_t star = 6;
  while (star < s.length && s.text[star] != '*') ++star;
  if (star + 2 >= s.length) return false;
  const int high = HexDigit(s.text[star + 1]);
  const int low = HexDigit(s.text[star + 2]);
  if (high < 0 || low < 0) return false;
  if (star + 3 < s.length && HexDigit(s.text[star + 3]) >= 0) return false;
  unsigned sum = 0;
  for (std::size_t i = 1; i < star; ++i) sum ^= static_cast<unsigned char>(s.text[i]);
  return sum == static_cast<unsigned>(high * 16 + low);
}

void ExtractField(Sentence s, int n, char (&field)[kFieldSize]) {
  std::memset(field, 0, kFieldSize);
  int separators = 0;
  std::size_t copied = 0;
  for (std::size_t i = 6; i < s.length; ++i) {
    const char c = s.text[i];
    if (c == ',' || c == '*') ++separators;
    if (separators > n) break;
    if (c != ',' && separators == n && copied < kFieldSize - 1) field[copied++] = c;
  }
}

int FieldInt(Sentence s, int n) {
  char field[kFieldSize];
  ExtractField(s, n, field);
  return ParseInt(field);
}

double FieldDouble(Sentence s, int n) {
  char field[kFieldSize];
  ExtractField(s, n, field);
  return ParseDouble(field);
}

char FieldChar(Sentence s, int n) {
  char field[kFieldSize];
  ExtractField(s, n, field);
  return field[0];
}

double DegreesOfNmea(double value) {
  const double degrees = std::trunc(value / 100.0);
  const double minutes = value - 100.0 * degrees;
  return degrees + minutes / 60.0;
}

void ReadTimeField(const char (&field)[kFieldSize], GpsData& gps, Clock& clock) {
  gps.hour = static_cast<std::int16_t>(PairAt(field, 0));
  gps.minute = static_cast<std::int16_t>(PairAt(field, 2));
  gps.second = static_cast<std::int16_t>(PairAt(field, 4));
  gps.hundredths = static_cast<std::int16_t>(PairAt(field, 7));  // character 6 is the point
  gps.timeStamp = clock.tickCount();
}

void ReadDateField(const char (&field)[kFieldSize], GpsData& gps) {
  gps.day = PairAt(field, 0);
  gps.month = PairAt(field, 2);
  gps.year = PairAt(field, 4) + 2000;
}

}  // namespace norvane::nmea
