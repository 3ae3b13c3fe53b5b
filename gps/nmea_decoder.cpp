#include "gps/nmea_decoder.h"

#include <cstdint>
#include <cstring>

#include "gps/nmea_fields.h"

namespace norvane {
namespace {

using nmea::DegreesOfNmea;
using nmea::FieldChar;
using nmea::FieldDouble;
using nmea::FieldInt;
using nmea::kDegreesToRadians;
using nmea::Sentence;

double Latitude(Sentence s, int field) {
  const double degrees = DegreesOfNmea(FieldDouble(s, field));
  const char hemisphere = FieldChar(s, field + 1);
  return hemisphere == 'S' || hemisphere == 's' ? -degrees : degrees;
}

double Longitude(Sentence s, int field) {
  const double degrees = DegreesOfNmea(FieldDouble(s, field));
  const char hemisphere = FieldChar(s, field + 1);
  return hemisphere == 'W' || hemisphere == 'w' ? -degrees : degrees;
}

void Time(Sentence s, int field, GpsData& gps, Clock& clock) {
  char text[nmea::kFieldSize];
  nmea::ExtractField(s, field, text);
  nmea::ReadTimeField(text, gps, clock);
}

int DecodeRmc(Sentence s, GpsData& gps, Clock& clock) {
  Time(s, 1, gps, clock);
  gps.valid = FieldChar(s, 2) != 'V' ? 1 : 0;
  gps.latitude = Latitude(s, 3);
  gps.longitude = Longitude(s, 5);
  gps.speed = FieldDouble(s, 7) * 1.852;
  (void)FieldDouble(s, 8);  // course over ground: only VTG sets it
  char date[nmea::kFieldSize];
  nmea::ExtractField(s, 9, date);
  nmea::ReadDateField(date, gps);
  const double variation = FieldDouble(s, 10);
  const char side = FieldChar(s, 11);
  gps.magneticVariation = side == 'W' || side == 'w' ? -variation : variation;
  return kNmeaRmc;
}

int DecodeVtg(Sentence s, GpsData& gps, Clock&) {
  gps.course = FieldDouble(s, 1);
  gps.course2 = FieldDouble(s, 2);  // usually the letter "T", so 0: kept as it reads
  gps.speed = FieldDouble(s, 7);
  return kNmeaVtg;
}

int DecodeGga(Sentence s, GpsData& gps, Clock& clock) {
  Time(s, 1, gps, clock);
  gps.latitude = Latitude(s, 2);
  gps.longitude = Longitude(s, 4);
  // Fix quality and satellites used land as 32-bit values on two adjacent
  // 16-bit slots: the second write leaves the upper half of the satellite
  // count in fixQuality.
  gps.fixQuality = static_cast<std::int16_t>(FieldInt(s, 6));
  const auto used = static_cast<std::uint32_t>(FieldInt(s, 7));
  gps.satellitesInUse = static_cast<std::int16_t>(used & 0xFFFFu);
  gps.fixQuality = static_cast<std::int16_t>(used >> 16);
  gps.hdop = FieldDouble(s, 8);
  gps.altitude = FieldDouble(s, 9);
  return kNmeaGga;
}

int DecodeGsa(Sentence s, GpsData& gps, Clock&) {
  gps.fixMode = FieldInt(s, 2);
  for (int i = 0; i < kGpsUsedSlots; ++i) gps.usedPrn[static_cast<std::size_t>(i)] = FieldInt(s, 3 + i);
  gps.pdop = FieldDouble(s, 15);
  gps.hdop = FieldDouble(s, 16);
  gps.vdop = FieldDouble(s, 17);
  return kNmeaGsa;
}

int DecodeGsv(Sentence s, GpsData& gps, Clock&) {
  const int messages = FieldInt(s, 1);
  const int number = FieldInt(s, 2);
  if (number < 1 || number > messages || number >= 5) return kNmeaNothing;
  gps.satellitesInView = static_cast<std::int16_t>(FieldInt(s, 3));
  for (int i = 0; i < 4; ++i) {
    const auto slot = static_cast<std::size_t>(number - 1) * 4 + static_cast<std::size_t>(i);
    gps.prn[slot] = static_cast<std::int16_t>(FieldInt(s, 4 + 4 * i));
    gps.elevation[slot] = FieldDouble(s, 5 + 4 * i) * kDegreesToRadians;
    gps.azimuth[slot] = FieldDouble(s, 6 + 4 * i) * kDegreesToRadians;
    gps.snr[slot] = static_cast<std::int16_t>(FieldInt(s, 7 + 4 * i));
  }
  return number == messages ? kNmeaGsv : kNmeaNothing;
}

int DecodeGll(Sentence s, GpsData& gps, Clock& clock) {
  gps.latitude = Latitude(s, 1);
  gps.longitude = Longitude(s, 3);
  Time(s, 5, gps, clock);
  gps.valid = FieldChar(s, 6) == 'A' ? 1 : 0;  // stricter than RMC on purpose
  return kNmeaGll;
}

struct SentenceKind {
  const char* name;
  bool gpTalkerOnly;
  int (*decode)(Sentence, GpsData&, Clock&);
};

// Tested in this order; the first wanted kind whose name matches decides.
constexpr SentenceKind kKinds[6] = {
    {"RMC", false, DecodeRmc}, {"VTG", false, DecodeVtg}, {"GGA", false, DecodeGga},
    {"GSA", false, DecodeGsa}, {"GSV", true, DecodeGsv},  {"GLL", false, DecodeGll},
};

}  // namespace

int DecodeNmeaSentence(const char* text, std::size_t length, GpsData& gps,
                       const NmeaWanted& wanted, Clock& clock, NmeaOptions options) {
  if (length < 6 || text[0] != '$' || text[1] != 'G') return kNmeaNothing;
  const bool gpTalker = text[2] == 'P';
  if (!gpTalker && !(options.acceptGn && text[2] == 'N')) return kNmeaNothing;
  const Sentence sentence{text, length};
  for (std::size_t k = 0; k < wanted.size(); ++k) {
    if (!wanted[k] || std::memcmp(text + 3, kKinds[k].name, 3) != 0) continue;
    if (kKinds[k].gpTalkerOnly && !gpTalker) return kNmeaNothing;
    if (!nmea::ChecksumMatches(sentence)) return kNmeaNothing;
    return kKinds[k].decode(sentence, gps, clock);
  }
  return kNmeaNothing;
}

int ReadNmeaSentence(ByteSource& source, NmeaLine& line, int huntLimit, GpsData& gps,
                     const NmeaWanted& wanted, Clock& clock, NmeaOptions options) {
  std::uint8_t byte = 0;
  for (int count = 1;; ++count) {
    if (!source.readByte(byte) || count > huntLimit) return kNmeaNothing;
    if (byte == '$') break;
  }
  std::size_t stored = 0;
  line.text[stored++] = '$';
  while (source.readByte(byte) && byte != '\r' && byte != '\n') {
    if (stored == kNmeaMaxStored) {
      while (source.readByte(byte) && byte != '\r' && byte != '\n') {
      }
      return kNmeaNothing;
    }
    line.text[stored++] = static_cast<char>(byte);
  }
  line.text[stored++] = '\r';
  line.text[stored++] = '\n';
  line.text[stored++] = '\0';
  line.length = stored;
  return DecodeNmeaSentence(line.text.data(), line.length, gps, wanted, clock, options);
}

int GpsReadCycle(ByteSource& source, GpsData& gps, const NmeaWanted& wanted, Clock& clock,
                 NmeaOptions options) {
  NmeaWanted pending = wanted;
  NmeaLine line;
  for (int read = 0; read < 24; ++read) {
    const int kind = ReadNmeaSentence(source, line, kNmeaHuntLimit, gps, pending, clock, options);
    if (kind >= kNmeaRmc && kind <= kNmeaGll) pending[static_cast<std::size_t>(kind - 1)] = false;
    if (!pending[0] && !pending[1] && !pending[2] && !pending[3] && !pending[4]) break;
  }
  return 1;
}

}  // namespace norvane
