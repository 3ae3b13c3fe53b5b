#include <gtest/gtest.h>

#include "download/download_texts.h"
#include "download/fetch_log.h"
#include "download/http_time.h"
#include "tests/common/test_support.h"

namespace norvane {
namespace {

constexpr UnixSeconds kNoon = 1795435200;  // 2026-11-23 12:00:00 UTC

TEST(HttpTime, DatesRetryAfterAndTheirText) {
  EXPECT_EQ(parseHttpDate("Sun, 06 Nov 1994 08:49:37 GMT"), 784111777);
  EXPECT_EQ(parseHttpDate("Mon, 23 Nov 2026 12:00:00 GMT"), kNoon);
  EXPECT_EQ(parseHttpDate(" Thu, 29 Feb 2024 23:59:59 GMT "), 1709251199);
  for (const char* bad : {"", "Sun, 06 Nov 1994 08:49:37", "Sun, 06 Nov 1994 08:49:37 UTC", "Fri, 29 Feb 2026 00:00:00 GMT",
                          "Sun, 6 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT", "Sun, 06 Xyz 1994 08:49:37 GMT",
                          "Sun, 06 Nov 1994 24:00:00 GMT", "Sun, 06 Nov 1969 08:49:37 GMT"}) {
    EXPECT_FALSE(parseHttpDate(bad)) << bad;
  }
  EXPECT_EQ(retryAfterTime("120", kNoon), kNoon + 120);
  EXPECT_EQ(retryAfterTime("Mon, 23 Nov 2026 13:00:00 GMT", kNoon), kNoon + 3600);
  EXPECT_EQ(retryAfterTime("99999999999999999999999", kNoon), kNoon + UnixSeconds{400} * 86400);  // no overflow
  EXPECT_FALSE(retryAfterTime("", kNoon));
  EXPECT_FALSE(retryAfterTime("-5", kNoon));
  EXPECT_FALSE(retryAfterTime("soon", kNoon));
  EXPECT_EQ(formatUtcMinute(kNoon + 59), "2026-11-23 12:00 UTC");
  EXPECT_EQ(formatUtcMinute(1709251199), "2024-02-29 23:59 UTC");
  EXPECT_EQ(formatUtcMinute(-1), "1970-01-01 00:00 UTC");
}

TEST(FetchLog, SurvivesRestartsAndBadFiles) {
  testing::TempFolder folder;
  const std::string path = folder / "Downloads.json";
  EXPECT_TRUE(loadFetchLog(path).empty());
  FetchLog log;
  log["https://a/gp.php?GROUP=geo&FORMAT=tle"] = {kNoon, kNoon + 120, "Mon, 23 Nov 2026 11:00:00 GMT", "\"x\xff\""};
  log["http://b/NORAD/elements/geo.txt"] = {kNoon - 10, 0, "", ""};
  ASSERT_TRUE(saveFetchLog(path, log));
  FetchLog back = loadFetchLog(path);
  EXPECT_EQ(back.size(), 2u);
  EXPECT_EQ(back.at("http://b/NORAD/elements/geo.txt"), log.at("http://b/NORAD/elements/geo.txt"));
  EXPECT_EQ(back.at("https://a/gp.php?GROUP=geo&FORMAT=tle").retryAfter, kNoon + 120);
  EXPECT_EQ(back.at("https://a/gp.php?GROUP=geo&FORMAT=tle").etag, "\"x\xef\xbf\xbd\"");  // stored as UTF-8

  // Entries of the wrong shape are dropped, the rest kept; other texts give nothing.
  const auto mixed = decodeFetchLog(R"({"u1": {"fetched": "noon", "etag": 7}, "u2": [], "": {}, "u3": {"fetched": 5}})");
  ASSERT_TRUE(mixed);
  EXPECT_EQ(mixed->size(), 2u);
  EXPECT_EQ(mixed->at("u1"), FetchRecord{});
  EXPECT_EQ(mixed->at("u3").fetchedAt, 5);
  for (const char* bad : {"", "[]", "{", "null", "{\"u\": {\"fetched\": 1}"}) EXPECT_FALSE(decodeFetchLog(bad)) << bad;
  EXPECT_FALSE(decodeFetchLog(std::string(kMaxFetchLogBytes + 1, ' ')));
  folder.write("Downloads.json", "not json");
  EXPECT_TRUE(loadFetchLog(path).empty());

  // Only the most recent records are kept.
  FetchLog many;
  for (int i = 0; i < static_cast<int>(kMaxFetchRecords) + 5; ++i) many["u" + std::to_string(i)] = {kNoon + i, 0, "", ""};
  ASSERT_TRUE(saveFetchLog(path, many));
  back = loadFetchLog(path);
  EXPECT_EQ(back.size(), kMaxFetchRecords);
  EXPECT_EQ(back.count("u4"), 0u);
  EXPECT_EQ(back.count("u5"), 1u);
}

TEST(DownloadTexts, RepliesAreShownPrintable) {
  EXPECT_EQ(printablePrefix("a\r\n\tb\x01\xc3\xa9", 60), "a b...");
  EXPECT_EQ(printablePrefix("abcdef", 3), "abc...");
  EXPECT_EQ(unusableReplyText("http://u", "", std::string("\0x", 2), false),
            "No element sets in the reply from http://u: no content type, 2 bytes: \".x\". The saved copy is kept.");
}

}  // namespace
}  // namespace norvane
