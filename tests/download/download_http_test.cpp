#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

#include "download/element_download.h"
#include "download/qt_http_client.h"
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
    settings.flares = 1;
  }

  DownloadResult download(const std::string& base, int row, const std::string& folder = "") {
    DownloadContext context{http, sink, store, base, folder.empty() ? documents.string() : folder};
    DownloadTarget target{*catalogue, settings, mark};
    return downloadCategory(row, context, target);
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
  fs::path documents = temp.path;
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  Settings settings;
  std::int32_t mark = 7;
};

testing::ElementServer DownloadHttp::server;

TEST_F(DownloadHttp, LoadsSavesAndNamesTheCopy) {
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
}

TEST_F(DownloadHttp, IridiumSetsTheMarkAndKeepsFlares) {
  const auto result = download(server.base("ok") + "/", kIridium);
  EXPECT_EQ(result.count, 92);
  EXPECT_EQ(mark, 1);
  EXPECT_EQ(settings.flares, 1);
  EXPECT_TRUE(fs::exists(documents / "iridium.txt"));
}

TEST_F(DownloadHttp, SendsTheUserAgentAndPath) {
  download(server.base("agent"), kStations);
  EXPECT_EQ(ReadFile(documents / "stations.txt"),
            "Mozilla/4.0 (compatible; MSIE 4.01; Windows NT Windows CE)\n/agent/NORAD/elements/stations.txt");
}

TEST_F(DownloadHttp, RedirectIsFollowedAndSavedUnderTheRequestedName) {
  const auto result = download(server.base("redirect"), kStations);
  EXPECT_EQ(result.status, DownloadStatus::Saved);
  EXPECT_EQ(result.count, 144);
  EXPECT_TRUE(fs::exists(documents / "stations.txt"));
  EXPECT_FALSE(fs::exists(documents / "moved-stations.txt"));
}

TEST_F(DownloadHttp, OddBodiesAreLoadedAsTheyCome) {
  // Over the limit: cut at 33,301 bytes, which still holds 181 whole entries.
  EXPECT_EQ(download(server.base("big"), kStations).count, 181);
  EXPECT_EQ(fs::file_size(documents / "stations.txt"), 33301u);
  // Empty: nothing read, an empty copy.
  EXPECT_EQ(download(server.base("empty"), kStations).status, DownloadStatus::Saved);
  EXPECT_EQ(catalogue->satelliteCount, 0);
  EXPECT_EQ(fs::file_size(documents / "stations.txt"), 0u);
  // Binary garbage: no satellites, the bytes kept as they came.
  EXPECT_EQ(download(server.base("garbage"), kStations).count, 0);
  EXPECT_EQ(fs::file_size(documents / "stations.txt"), 5000u);
  EXPECT_EQ(sink.texts()[2], "Data of 0 satellites successfully read from " + server.base("garbage") +
                                 "/NORAD/elements/stations.txt.");
}

TEST_F(DownloadHttp, NoAnswerLoadsAndWritesNothing) {
  temp.write("stations.txt", "the user's own file\r\n");
  const std::string refused = "http://127.0.0.1:" + std::to_string(testing::FreeLoopbackPort());
  for (const std::string& base : {server.base("missing"), refused, server.base("slow"), std::string("ftp://127.0.0.1")}) {
    SCOPED_TRACE(base);
    sink.shown.clear();
    catalogue->satelliteCount = 5;
    const auto started = std::chrono::steady_clock::now();
    const auto result = download(base, kStations);
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(3));
    EXPECT_EQ(result.status, DownloadStatus::NoUrl);
    const std::string url = base + "/NORAD/elements/stations.txt";
    EXPECT_EQ(sink.shown, (Messages{{"Can't connect to url!", url, MessageIcon::Stop}}));
    EXPECT_EQ(catalogue->satelliteCount, 5);
    EXPECT_EQ(store.writes, 0);
    expectOldCopyOnly();
  }
  EXPECT_EQ(mark, 0);  // the mark is set before the connection is tried
}

TEST_F(DownloadHttp, ABodyThatBreaksOffLoadsAndWritesNothing) {
  temp.write("stations.txt", "the user's own file\r\n");
  for (const char* mode : {"reset", "stall"}) {
    SCOPED_TRACE(mode);
    sink.shown.clear();
    catalogue->satelliteCount = 5;
    const auto result = download(server.base(mode), kStations);
    EXPECT_EQ(result.status, DownloadStatus::ReadError);
    const std::string url = server.base(mode) + "/NORAD/elements/stations.txt";
    EXPECT_EQ(sink.shown, (Messages{{"Error reading data!", url, MessageIcon::Stop}}));
    EXPECT_EQ(catalogue->satelliteCount, 5);
    expectOldCopyOnly();
  }
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
