#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

#include "download/element_download.h"
#include "download/qt_http_client.h"
#include "core/elements/element_formats.h"
#include "fixture_server.h"
#include "recording_sink.h"
#include "settings/memory_settings_store.h"
#include "settings/wide_path.h"

namespace norvane {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using Message = testing::RecordingSink::Shown;
using Messages = std::vector<Message>;

constexpr int kStations = 1, kVisual = 2, kIridium = 15;

// Short time-outs so that the slow and stalling servers (4 s) are given up on in about a second.
constexpr HttpTimeouts kTestTimeouts{1000, 1000, 5000};

class DownloadHttp : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { server.start(); }
  static void TearDownTestSuite() { server.stop(); }

  void SetUp() override {
    ASSERT_NE(server.port(), 0) << "the test server did not start";
    requests();  // forget what earlier tests asked
    settings.flares = 1;
  }

  DownloadResult download(const std::string& source, int row, const std::string& folder = "") {
    DownloadContext context{http, sink, store, source, folder.empty() ? documents.string() : folder};
    context.fetchLogPath = home / "Downloads.json";
    context.now = [this] { return now; };
    DownloadTarget target{*catalogue, settings, mark};
    return downloadCategory(row, context, target);
  }

  // The requests the server saw since the last call: path, user agent,
  // If-None-Match and If-Modified-Since, tab-separated.
  static std::vector<std::string> requests() {
    QtHttpClient reader;
    reader.open("test");
    const std::string text = reader.get("http://127.0.0.1:" + std::to_string(server.port()) + "/requests", 1 << 20).body;
    std::vector<std::string> lines;
    for (std::size_t at = 0, end; (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
      lines.push_back(text.substr(at, end - at));
    }
    return lines;
  }

  std::string templateOf(const std::string& mode) const {
    return server.base(mode) + "/NORAD/elements/gp.php?GROUP={group}&FORMAT={format}";
  }

  // The file left in the documents folder is the user's old copy, and nothing else is there.
  void expectOldCopyOnly() {
    EXPECT_EQ(ReadFile(documents / "stations.txt"), "the user's own file\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(documents), fs::directory_iterator{}), 1);
  }

  static testing::ElementServer server;
  QtHttpClient http{kTestTimeouts};
  testing::RecordingSink sink;
  MemorySettingsStore store;
  testing::TempFolder temp;
  testing::TempFolder home;  // the program folder, with the fetch log
  fs::path documents = temp.path;
  UnixSeconds now = 1795435200;  // 2026-11-23 12:00 UTC
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  Settings settings;
  std::int32_t mark = 7;
};

testing::ElementServer DownloadHttp::server;

TEST_F(DownloadHttp, LoadsSavesAndNamesTheCopyAndMarksIridium) {
  const auto result = download(server.base("ok"), kVisual);
  const std::string url = server.base("ok") + "/NORAD/elements/visual.txt";
  EXPECT_EQ(result.status, DownloadStatus::Saved);
  EXPECT_EQ(result.count, 144);
  EXPECT_EQ(sink.shown, (Messages{{"Data of 144 satellites successfully read from " + url + ".", "Info.",
                                   MessageIcon::Information}}));
  EXPECT_EQ(catalogue->satelliteCount, 144);
  const fs::path copy = documents / "visual.txt";
  EXPECT_EQ(ReadFile(copy), ReadFile(NORVANE_DATA_DIR "/visual_2017-04-14.txt"));
  EXPECT_EQ(settings.lastOpen, copy.string());
  const auto& stored = store.values["Last_Open"];
  ASSERT_EQ(stored.size(), 520u);
  EXPECT_EQ(decodeWidePath(stored.data(), stored.size()), copy.string());
  EXPECT_EQ(store.values.count("Sat_Display"), 1u);
  EXPECT_EQ(mark, 0);
  EXPECT_EQ(settings.flares, 0);
  // The Iridium group sets the mark and keeps flares on.
  settings.flares = 1;
  EXPECT_EQ(download(server.base("ok") + "/", kIridium).count, 92);
  EXPECT_EQ(mark, 1);
  EXPECT_EQ(settings.flares, 1);
  EXPECT_TRUE(fs::exists(documents / "iridium.txt"));
}

TEST_F(DownloadHttp, SendsTheUserAgentToTheBaseOrTheTemplateUrl) {
  download(server.base("ok"), kStations);
  download(templateOf("ok"), kIridium);
  const std::string agent = "Mozilla/4.0 (compatible; MSIE 4.01; Windows NT Windows CE)";
  EXPECT_EQ(requests(), (std::vector<std::string>{"/ok/NORAD/elements/stations.txt\t" + agent + "\t\t",
                                                  "/ok/NORAD/elements/gp.php?GROUP=iridium&FORMAT=tle\t" + agent + "\t\t"}));
  EXPECT_EQ(ReadFile(documents / "iridium.txt"), ReadFile(NORVANE_DATA_DIR "/iridium_2014-06-21.txt"));
  EXPECT_EQ(mark, 1);
}

TEST_F(DownloadHttp, RedirectIsFollowedAndSavedUnderTheRequestedName) {
  const auto result = download(server.base("redirect"), kStations);
  EXPECT_EQ(result.status, DownloadStatus::Saved);
  EXPECT_EQ(result.count, 144);
  EXPECT_TRUE(fs::exists(documents / "stations.txt"));
  EXPECT_FALSE(fs::exists(documents / "moved-stations.txt"));
}

TEST_F(DownloadHttp, ALongElementFileIsCutAtOneRead) {
  EXPECT_EQ(download(server.base("big"), kStations).count, 181);
  EXPECT_EQ(fs::file_size(documents / "stations.txt"), 33301u);
}

TEST_F(DownloadHttp, RepliesWithoutElementSetsKeepTheCopyAndTheCatalogue) {
  temp.write("stations.txt", "the user's own file\r\n");
  struct Case {
    const char* mode;
    std::string shown;  // what the message says came back
  };
  for (const Case& c : {Case{"html", "text/html; charset=UTF-8, 92 bytes: \"<!DOCTYPE html> <html><head><title>Server "
                                     "error</title></hea...\""},
                        Case{"nogp", "text/plain, 16 bytes: \"No GP data found\""},
                        Case{"empty", "text/plain, an empty body"},
                        Case{"garbage", "text/plain, 5000 bytes: \""}}) {
    SCOPED_TRACE(c.mode);
    sink.shown.clear();
    catalogue->satelliteCount = 5;
    const auto result = download(templateOf(c.mode), kStations);
    EXPECT_EQ(result.status, DownloadStatus::Unusable);
    ASSERT_EQ(sink.shown.size(), 1u);
    const std::string text = sink.shown[0].text;
    EXPECT_EQ(text.rfind("No element sets in the reply from " + result.url + ": " + c.shown, 0), 0u) << text;
    EXPECT_TRUE(text.ends_with(". The saved copy is kept.")) << text;
    EXPECT_EQ(catalogue->satelliteCount, 5);
    EXPECT_EQ(store.writes, 0);
    expectOldCopyOnly();
  }
}

TEST_F(DownloadHttp, OmmRepliesAreLoadedAndSavedAsReceived) {
  for (const char* format : {"csv", "json"}) {
    SCOPED_TRACE(format);
    const auto result = download(templateOf(format), kStations);
    EXPECT_EQ(result.status, DownloadStatus::Saved);
    EXPECT_EQ(elementFormatName(result.format), std::string(format));
    EXPECT_EQ(result.count, 4);
    EXPECT_EQ(result.skipped, 1);  // the record without a mean motion
    EXPECT_EQ(catalogue->satelliteCount, 4);
    EXPECT_EQ(catalogue->satellites[3].catnr, 270001);
    // Saved exactly as it came, under the group's usual name.
    const std::string body = http.get(categoryUrl(templateOf(format), "stations"), 1 << 20).body;
    EXPECT_EQ(ReadFile(documents / "stations.txt"), body);
  }
}

TEST_F(DownloadHttp, ASecondRequestWithinTwoHoursIsNotSentThenItIsConditional) {
  const std::string source = templateOf("validators");
  ASSERT_EQ(download(source, kStations).status, DownloadStatus::Saved);
  const std::string copy = ReadFile(documents / "stations.txt");
  ASSERT_EQ(requests().size(), 1u);

  // An hour later: the saved copy is loaded, the server is not asked.
  now += 3600;
  sink.shown.clear();
  catalogue->satelliteCount = 0;
  auto result = download(source, kStations);
  EXPECT_TRUE(requests().empty());
  EXPECT_EQ(result.status, DownloadStatus::SavedCopy);
  EXPECT_FALSE(result.fetched);
  EXPECT_EQ(result.count, 144);
  EXPECT_EQ(catalogue->satelliteCount, 144);
  EXPECT_EQ(result.nextRequest, now - 3600 + kRefetchSeconds);
  ASSERT_EQ(sink.shown.size(), 2u);
  EXPECT_EQ(sink.shown[0].text, "Not downloaded again: " + result.url +
                                    " was downloaded at 2026-11-23 12:00 UTC, and the element server allows one "
                                    "download of a file every two hours. The saved copy is loaded. A new download "
                                    "is possible after 2026-11-23 14:00 UTC.");
  EXPECT_EQ(sink.shown[1].text, "Data of 144 satellites successfully read from " + result.path + ".");
  EXPECT_EQ(settings.lastOpen, result.path);

  // Past two hours: asked again with the saved copy's validators; 304 keeps it.
  now += 3601;
  sink.shown.clear();
  result = download(source, kStations);
  const auto asked = requests();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_TRUE(asked[0].ends_with("\t\"v1\"\tMon, 23 Nov 2026 12:00:00 GMT")) << asked[0];
  EXPECT_EQ(result.status, DownloadStatus::SavedCopy);
  EXPECT_FALSE(result.fetched);
  EXPECT_EQ(result.count, 144);
  EXPECT_EQ(sink.texts().at(0), "The element server has nothing newer at " + result.url +
                                    " than the saved copy, which is loaded.");
  EXPECT_EQ(ReadFile(documents / "stations.txt"), copy);
  // The 304 counts as a fetch: the next two hours are quiet again.
  now += 60;
  EXPECT_EQ(download(source, kStations).status, DownloadStatus::SavedCopy);
  EXPECT_TRUE(requests().empty());
}

TEST_F(DownloadHttp, RefusalsAreReportedAndTheirWaitHonoured) {
  temp.write("stations.txt", "the user's own file\r\n");
  catalogue->satelliteCount = 5;
  auto result = download(templateOf("refuse"), kStations);
  EXPECT_EQ(result.status, DownloadStatus::Refused);
  EXPECT_EQ(sink.shown, (Messages{{"The element server refused the download of " + result.url +
                                       " (HTTP 403): the element server allows one download of a file every two "
                                       "hours. The saved copy is kept. A new download is possible after 2026-11-23 "
                                       "14:00 UTC.",
                                   "Download refused", MessageIcon::Stop}}));
  EXPECT_EQ(catalogue->satelliteCount, 5);
  expectOldCopyOnly();

  // 429 with Retry-After: 120 s.
  result = download(templateOf("busy"), kStations);
  EXPECT_EQ(result.status, DownloadStatus::Refused);
  EXPECT_EQ(result.nextRequest, now + 120);
  EXPECT_EQ(requests().size(), 2u);
  now += 60;
  sink.shown.clear();
  result = download(templateOf("busy"), kStations);
  EXPECT_TRUE(requests().empty());
  // The user's file holds no element sets: it is not loaded over the catalogue.
  EXPECT_EQ(result.status, DownloadStatus::Waiting);
  EXPECT_EQ(sink.texts(), std::vector<std::string>{"Not downloaded again: " + result.url +
                                                   " was refused, and the server asked to wait until 2026-11-23 "
                                                   "12:02 UTC. There is no usable saved copy to load. A new download "
                                                   "is possible after 2026-11-23 12:02 UTC."});
  EXPECT_EQ(catalogue->satelliteCount, 5);
  now += 61;
  EXPECT_EQ(download(templateOf("busy"), kStations).status, DownloadStatus::Refused);
  EXPECT_EQ(requests().size(), 1u);
  expectOldCopyOnly();
}

// No server, a refused connection, one too slow, a scheme the client does
// not speak, and bodies that break off: nothing is loaded or written.
TEST_F(DownloadHttp, NoAnswerOrABrokenBodyLoadsAndWritesNothing) {
  temp.write("stations.txt", "the user's own file\r\n");
  struct Case {
    std::string base;
    DownloadStatus status;
    const char* text;
  };
  const char* const kNoUrl = "Can't connect to url!";
  const char* const kBroken = "Error reading data!";
  for (const Case& c : {Case{server.base("missing"), DownloadStatus::NoUrl, kNoUrl},
                        Case{"http://127.0.0.1:" + std::to_string(testing::FreeLoopbackPort()), DownloadStatus::NoUrl, kNoUrl},
                        Case{server.base("slow"), DownloadStatus::NoUrl, kNoUrl},
                        Case{"ftp://127.0.0.1", DownloadStatus::NoUrl, kNoUrl},
                        Case{server.base("reset"), DownloadStatus::ReadError, kBroken},
                        Case{server.base("stall"), DownloadStatus::ReadError, kBroken}}) {
    SCOPED_TRACE(c.base);
    sink.shown.clear();
    catalogue->satelliteCount = 5;
    const auto started = std::chrono::steady_clock::now();
    const auto result = download(c.base, kStations);
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(3));
    EXPECT_EQ(result.status, c.status);
    EXPECT_EQ(sink.shown, (Messages{{c.text, c.base + "/NORAD/elements/stations.txt", MessageIcon::Stop}}));
    EXPECT_EQ(catalogue->satelliteCount, 5);
    EXPECT_EQ(store.writes, 0);
    expectOldCopyOnly();
  }
  EXPECT_EQ(mark, 0);  // the mark is set before the connection is tried
}

TEST_F(DownloadHttp, UnwritableDocumentsFolderKeepsTheCatalogue) {
  // The documents "folder" is a plain file: no copy can be created.
  const auto result = download(server.base("ok"), kVisual, temp.write("plain", "x"));
  EXPECT_EQ(result.status, DownloadStatus::LoadedNotSaved);
  EXPECT_EQ(catalogue->satelliteCount, 144);
  ASSERT_EQ(sink.shown.size(), 3u);
  EXPECT_EQ(sink.shown[1].text, "I can't open the file!");
  EXPECT_EQ(sink.shown[2], (Message{"Error saving data to My Documents!", "Save error", MessageIcon::Stop}));
  // The settings already name the copy that could not be written.
  EXPECT_EQ(settings.lastOpen, (documents / "plain" / "visual.txt").string());
  EXPECT_EQ(store.values.count("Last_Open"), 1u);
}

TEST_F(DownloadHttp, CopyThatCannotReplaceTheTargetLeavesNoPartialFile) {
  fs::create_directory(documents / "visual.txt");
  std::ofstream(documents / "visual.txt" / "inside") << "x";
  const auto result = download(server.base("ok"), kVisual);
  EXPECT_EQ(result.status, DownloadStatus::LoadedNotSaved);
  EXPECT_EQ(sink.texts(), (std::vector<std::string>{sink.shown[0].text, "Save failed!",
                                                    "Error saving data to My Documents!"}));
  EXPECT_EQ(std::distance(fs::directory_iterator(documents), fs::directory_iterator{}), 1);
}

TEST_F(DownloadHttp, ReadOnlyDocumentsFolder) {
  fs::permissions(documents, fs::perms::owner_read | fs::perms::owner_exec);
  if (access(documents.c_str(), W_OK) == 0) GTEST_SKIP() << "permissions do not bind this user (root)";
  const auto result = download(server.base("ok"), kVisual);
  EXPECT_EQ(result.status, DownloadStatus::LoadedNotSaved);
  EXPECT_EQ(catalogue->satelliteCount, 144);
  EXPECT_EQ(sink.texts()[1], "I can't open the file!");
}

}  // namespace
}  // namespace norvane
