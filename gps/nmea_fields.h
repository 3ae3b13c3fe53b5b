#pragma once
#include <cstddef>

#include "core/platform/clock.h"
#include "gps/gps_data.h"

namespace norvane::nmea {

// Size of the field buffer: at most 11 characters and a terminating zero.
inline constexpr std::size_t kFieldSize = 12;
inline constexpr double kDegreesToRadians = 0.0174532925199433;

// A stored sentence: "$" up to the line end, then CR, LF and a zero; length
// counts all of them.
struct Sentence {
  const char* text;
  std::size_t length;
};

// True when "*" (searched from character 6) is followed by exactly two
// hexadecimal digits equal to the XOR of the bytes between "$" and "*".
bool ChecksumMatches(Sentence s);

// Field n: the characters after the n-th separator ("," or "*"; a "*" opens a
// field and is copied into it), cut at 11 characters.
void ExtractField(Sentence s, int n, char (&field)[kFieldSize]);

// Field n read as "%d", "%Lf" and "%c" would: 0 (or the zero character) when
// the field is empty or has no number.
int FieldInt(Sentence s, int n);
double FieldDouble(Sentence s, int n);
char FieldChar(Sentence s, int n);

// dddmm.mmmm to degrees.
double DegreesOfNmea(double value);

// hhmmss.ss into hour, minute, second and hundredths; stamps timeStamp.
void ReadTimeField(const char (&field)[kFieldSize], GpsData& gps, Clock& clock);
// ddmmyy into day, month and 2000 + yy.
void ReadDateField(const char (&field)[kFieldSize], GpsData& gps);

}  // namespace norvane::nmea
