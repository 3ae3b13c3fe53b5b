#include "gps/nmea_decoder.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "tests/gps/nmea_feed.h"

namespace norvane {
namespace {

using test::FixedClock;
using test::Nmea;
using test::StringFeed;

// Classic receiver output with its published checksums.
const char* const kRmc = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
const char* const kGga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
const char* const kGsa = "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39\r\n";
const char* const kVtg = "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48\r\n";
const char* const kGll = "$GPGLL,4916.45,N,12311.12,W,225444,A,*1D\r\n";

int Read(const std::string& bytes, GpsData& gps, NmeaWanted wanted = kNmeaWantAll,
         NmeaOptions options = {}) {
  StringFeed feed(bytes);
  FixedClock clock;
  NmeaLine line;
  return ReadNmeaSentence(feed, line, kNmeaHuntLimit, gps, wanted, clock, options);
}

TEST(NmeaDecoder, ReferenceSentencesFillTheirFields) {
  GpsData gps;
  ASSERT_EQ(Read(kRmc, gps), kNmeaRmc);
  EXPECT_EQ(gps.valid, 1);
  EXPECT_NEAR(gps.latitude, 48.1173, 1e-12);
  EXPECT_NEAR(gps.longitude, 11.516666666666667, 1e-12);
  EXPECT_DOUBLE_EQ(gps.speed, 22.4 * 1.852);
  EXPECT_DOUBLE_EQ(gps.magneticVariation, -3.1);
  EXPECT_EQ(gps.course, 0.0);  // only VTG sets the course
  EXPECT_EQ(gps.hour * 10000 + gps.minute * 100 + gps.second, 123519);
  EXPECT_EQ(gps.year * 10000 + gps.month * 100 + gps.day, 20940323);  // the century is always 2000
  EXPECT_EQ(gps.timeStamp, 4242u);

  ASSERT_EQ(Read(kGga, gps), kNmeaGga);
  EXPECT_EQ(gps.satellitesInUse, 8);
  EXPECT_EQ(gps.fixQuality, 0);  // upper half of the satellite count
  EXPECT_DOUBLE_EQ(gps.hdop, 0.9);
  EXPECT_DOUBLE_EQ(gps.altitude, 545.4);

  ASSERT_EQ(Read(kGsa, gps), kNmeaGsa);
  EXPECT_EQ(gps.fixMode, 3);
  const std::array<std::int32_t, 12> used = {4, 5, 0, 9, 12, 0, 0, 24, 0, 0, 0, 0};
  EXPECT_EQ(gps.usedPrn, used);
  EXPECT_EQ(std::tuple(gps.pdop, gps.hdop, gps.vdop), std::tuple(2.5, 1.3, 2.1));

  ASSERT_EQ(Read(kVtg, gps), kNmeaVtg);
  EXPECT_DOUBLE_EQ(gps.course, 54.7);
  EXPECT_EQ(gps.course2, 0.0);  // field 2 is the letter "T"
  EXPECT_DOUBLE_EQ(gps.speed, 10.2);

  ASSERT_EQ(Read(kGll, gps), kNmeaGll);
  EXPECT_NEAR(gps.latitude, 49.274166666666666, 1e-12);
  EXPECT_NEAR(gps.longitude, -123.18533333333333, 1e-12);
  EXPECT_EQ(gps.hour * 10000 + gps.minute * 100 + gps.second, 225444);
  EXPECT_EQ(gps.valid, 1);
}

TEST(NmeaDecoder, FieldQuirks) {
  GpsData gps;
  // 010.0 knots, southern and western hemispheres in lower case, hundredths.
  ASSERT_EQ(Read(Nmea("GPRMC,081836.75,A,4807.038,s,01131.000,w,010.0,,230394,,"), gps), kNmeaRmc);
  EXPECT_DOUBLE_EQ(gps.speed, 18.52);
  EXPECT_NEAR(gps.latitude, -48.1173, 1e-12);
  EXPECT_NEAR(gps.longitude, -11.516666666666667, 1e-12);
  EXPECT_EQ(gps.hundredths, 75);
  // A number in VTG's second field is taken as it stands.
  ASSERT_EQ(Read(Nmea("GPVTG,10.0,12.5,,,,,3.5,K"), gps), kNmeaVtg);
  EXPECT_DOUBLE_EQ(gps.course2, 12.5);
  // The fix-quality slot keeps the upper half of the satellites value.
  ASSERT_EQ(Read(Nmea("GPGGA,,,,,,7,65537,,"), gps), kNmeaGga);
  EXPECT_EQ(gps.satellitesInUse, 1);
  EXPECT_EQ(gps.fixQuality, 1);
  EXPECT_EQ(gps.latitude, 0.0);  // an empty latitude is 0
  // "*" opens the field after the last comma, so a status there reads "A".
  ASSERT_EQ(Read(Nmea("GPGLL,4916.45,N,12311.12,W,225444,A"), gps), kNmeaGll);
  EXPECT_EQ(gps.valid, 1);
}

TEST(NmeaDecoder, ValidityDiffersBetweenRmcAndGll) {
  GpsData gps;
  ASSERT_EQ(Read(Nmea("GPRMC,120000,V,4807.038,N,01131.000,E,001.0,,010203,,"), gps), kNmeaRmc);
  EXPECT_EQ(gps.valid, 0);
  EXPECT_NEAR(gps.latitude, 48.1173, 1e-12);  // position, speed, time and date still stored
  EXPECT_DOUBLE_EQ(gps.speed, 1.852);
  EXPECT_EQ(gps.hour, 12);
  EXPECT_EQ(gps.year, 2003);
  ASSERT_EQ(Read(Nmea("GPRMC,120000,X,,,,,,,,,"), gps), kNmeaRmc);
  EXPECT_EQ(gps.valid, 1);  // anything but "V"
  ASSERT_EQ(Read(Nmea("GPGLL,,,,,120000,X"), gps), kNmeaGll);
  EXPECT_EQ(gps.valid, 0);  // only "A"
}

TEST(NmeaDecoder, RejectedSentencesLeaveTheRecordUnchanged) {
  GpsData gps;
  ASSERT_EQ(Read(kGga, gps), kNmeaGga);
  const GpsData before = gps;
  std::string wrong = kRmc;
  wrong[wrong.find('*') + 2] = 'B';
  const std::string body = "GPRMC,1,A,1.0,N,1.0,E,1,1,010101,,";
  const std::string good = Nmea(body);
  const std::string rejected[] = {
      wrong,
      "$" + body + "\r\n",                                      // no checksum
      good.substr(0, good.size() - 3) + "\r\n",                 // one hex digit
      good.substr(0, good.size() - 2) + "0\r\n",                // three hex digits
      Nmea("GNRMC,1,A,1.0,N,1.0,E,1,1,010101,,"),               // other talkers
      Nmea("GLGSV,1,1,01,05,10,20,30"),
      Nmea("GPZDA,120000,01,01,2000,,"),                        // unknown kind
      Nmea("GPGSV,5,5,20,05,10,20,30"),                         // message 5
      Nmea("GPGSV,2,3,08,05,10,20,30"),                         // above its count
      Nmea("GPGSV,2,0,08,05,10,20,30"),                         // below 1
  };
  for (const std::string& s : rejected) {
    EXPECT_EQ(Read(s, gps), kNmeaNothing) << s;
    EXPECT_EQ(gps, before) << s;
  }
  GpsData unwanted = before;
  EXPECT_EQ(Read(kRmc, unwanted, {false, true, true, true, true, true}), kNmeaNothing);
  EXPECT_EQ(unwanted, before);
  std::string lower = kRmc;
  lower.replace(lower.find('*') + 1, 2, "6a");
  EXPECT_EQ(Read(lower, gps), kNmeaRmc);
}

TEST(NmeaDecoder, GnTalkerWhenAccepted) {
  const NmeaOptions gn{true};
  GpsData gps;
  const std::pair<const char*, int> kinds[] = {
      {kRmc, kNmeaRmc}, {kVtg, kNmeaVtg}, {kGga, kNmeaGga}, {kGsa, kNmeaGsa}, {kGll, kNmeaGll}};
  for (const auto& [sentence, kind] : kinds) {
    const std::string gp = sentence;
    const std::string body = gp.substr(3, gp.find('*') - 3);  // after "$GP", before "*"
    EXPECT_EQ(Read(Nmea("GN" + body), gps, kNmeaWantAll, gn), kind) << body;
  }
  EXPECT_NEAR(gps.latitude, 49.274166666666666, 1e-12);
  const GpsData before = gps;
  std::string bad = Nmea("GNRMC,1,A,1.0,N,1.0,E,1,1,010101,,");
  bad[bad.size() - 3] = bad[bad.size() - 3] == '0' ? '1' : '0';
  for (const std::string& s : {Nmea("GNGSV,1,1,01,05,10,20,30"), bad, Nmea("GLRMC,1,A,1.0,N,1.0,E,1,1,010101,,")}) {
    EXPECT_EQ(Read(s, gps, kNmeaWantAll, gn), kNmeaNothing) << s;  // GSV stays GP; checksum still checked
  }
  EXPECT_EQ(gps, before);
}

TEST(NmeaDecoder, SatellitesInViewGroups) {
  GpsData gps;
  EXPECT_EQ(Read(Nmea("GPGSV,3,1,11,03,03,111,00,04,15,270,00,06,01,010,00,13,06,292,00"), gps), 0);
  EXPECT_EQ(Read(Nmea("GPGSV,3,2,11,14,25,170,00,16,57,208,39,18,67,296,40,19,40,246,00"), gps), 0);
  EXPECT_EQ(Read(Nmea("GPGSV,3,3,11,22,42,067,42,24,14,311,43,27,05,244,00"), gps), kNmeaGsv);
  EXPECT_EQ(gps.satellitesInView, 11);
  const std::int16_t prns[12] = {3, 4, 6, 13, 14, 16, 18, 19, 22, 24, 27, 0};
  for (std::size_t k = 0; k < 12; ++k) EXPECT_EQ(gps.prn[k], prns[k]) << k;
  EXPECT_EQ(gps.snr[5], 39);
  EXPECT_DOUBLE_EQ(gps.elevation[5], 57 * 0.0174532925199433);
  EXPECT_DOUBLE_EQ(gps.azimuth[5], 208 * 0.0174532925199433);
  EXPECT_EQ(gps.azimuth[11], 0.0);  // short last message
  EXPECT_EQ(Read(Nmea("GPGSV,4,4,16,30,10,20,35,31,11,21,36,32,12,22,37,33,13,23,38"), gps), kNmeaGsv);
  EXPECT_EQ(gps.prn[15], 33);  // message 4 reaches slot 15
  EXPECT_EQ(gps.prn[0], 3);
}

TEST(NmeaReader, HuntAndLineBounds) {
  GpsData gps;
  EXPECT_EQ(Read(std::string(100, 'x') + kVtg, gps), kNmeaVtg);     // "$" is byte 101
  EXPECT_EQ(Read(std::string(101, 'x') + kVtg, gps), kNmeaNothing);  // byte 102: too late
  const std::string vtg = kVtg;
  EXPECT_EQ(Read(vtg.substr(0, vtg.size() - 2), gps), kNmeaVtg);  // the feed ends, no CR/LF
  EXPECT_EQ(Read("$GPVTG,1.0\n" + vtg, gps), kNmeaNothing);       // LF alone ends a line

  // 101 stored bytes fit; one more makes the line unusable and it is skipped.
  const std::string body = "GPVTG,1.0,T,,,,,2.0,K,";
  const std::string fits = Nmea(body + std::string(101 - 4 - body.size(), '0'));
  ASSERT_EQ(fits.size(), 101u + 2);
  EXPECT_EQ(Read(fits, gps), kNmeaVtg);
  const std::string longer = Nmea(body + std::string(101 - 4 - body.size() + 1, '0'));
  StringFeed feed(longer + kGll);
  FixedClock clock;
  NmeaLine line;
  EXPECT_EQ(ReadNmeaSentence(feed, line, kNmeaHuntLimit, gps, kNmeaWantAll, clock), kNmeaNothing);
  EXPECT_EQ(ReadNmeaSentence(feed, line, kNmeaHuntLimit, gps, kNmeaWantAll, clock), kNmeaGll);

  // A zero byte inside a line is data and counts in the checksum.
  EXPECT_EQ(Read(Nmea(std::string("GPVTG,1.0,T,,,,,2.0,K,\0", 23)), gps), kNmeaVtg);
}

TEST(NmeaReader, SurvivesAnyBytes) {
  std::mt19937 random(7);
  const char alphabet[] = "$GPRMCVTGASLN,*.0123456789ABCDEF\r\n\0x";
  FixedClock clock;
  NmeaLine line;
  GpsData gps;
  for (int round = 0; round < 300; ++round) {
    std::string bytes;
    const std::size_t size = random() % 400;
    for (std::size_t i = 0; i < size; ++i) {
      bytes += random() % 4 == 0 ? static_cast<char>(random() % 256)
                                 : alphabet[random() % (sizeof alphabet - 1)];
    }
    StringFeed feed(bytes);
    for (int i = 0; i < 50 && feed.left() > 0; ++i) {
      const int kind = ReadNmeaSentence(feed, line, kNmeaHuntLimit, gps, kNmeaWantAll, clock);
      ASSERT_GE(kind, 0);
      ASSERT_LE(kind, 6);
      ASSERT_LE(line.length, line.text.size());
    }
  }
}

// A sentence read stops at its CR, so the LF of the last one is still unread.
constexpr std::size_t kLf = 1;

TEST(GpsReadCycle, StopsWhenEveryWantedKindArrived) {
  FixedClock clock;
  GpsData gps;
  // Wanted VTG and GGA: the second RMC is never reached.
  StringFeed feed(std::string(kRmc) + kVtg + kVtg + kGga + kRmc);
  EXPECT_EQ(GpsReadCycle(feed, gps, {false, true, true, false, false, false}, clock), 1);
  EXPECT_EQ(feed.left(), kLf + std::string(kRmc).size());
  EXPECT_EQ(gps.speed, 10.2);  // the RMC before was not wanted

  // Each kind once: a second VTG in the same cycle is not decoded.
  StringFeed twice(std::string(kVtg) + Nmea("GPVTG,1.0,T,,,,,99.0,K") + kGga);
  GpsReadCycle(twice, gps, {false, true, true, false, false, false}, clock);
  EXPECT_EQ(gps.speed, 10.2);
  EXPECT_EQ(twice.left(), kLf);
}

TEST(GpsReadCycle, BudgetAndGll) {
  FixedClock clock;
  GpsData gps;
  std::string many;
  for (int i = 0; i < 30; ++i) many += kGll;
  StringFeed unwanted(many);
  GpsReadCycle(unwanted, gps, {true, false, false, false, false, false}, clock);
  EXPECT_EQ(unwanted.left(), kLf + 6 * std::string(kGll).size());  // 24 sentences at most
  EXPECT_EQ(gps.latitude, 0.0);

  StringFeed onlyGll(many);
  GpsReadCycle(onlyGll, gps, {false, false, false, false, false, true}, clock);
  EXPECT_EQ(onlyGll.left(), kLf + 29 * std::string(kGll).size());  // GLL is not in the stop test

  StringFeed nothing(many);
  GpsData untouched;
  GpsReadCycle(nothing, untouched, {false, false, false, false, false, false}, clock);
  EXPECT_EQ(nothing.left(), kLf + 29 * std::string(kGll).size());
  EXPECT_EQ(untouched, GpsData{});

  // A GSV group counts once its last message is in; a silent source ends the cycle.
  StringFeed group(Nmea("GPGSV,2,1,05,01,10,20,30,02,10,20,30,03,10,20,30,04,10,20,30") +
                   Nmea("GPGSV,2,2,05,05,10,20,30") + kRmc);
  GpsReadCycle(group, gps, {false, false, false, false, true, false}, clock);
  EXPECT_EQ(group.left(), kLf + std::string(kRmc).size());
  EXPECT_EQ(gps.prn[4], 5);
}

}  // namespace
}  // namespace norvane
