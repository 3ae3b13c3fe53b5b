#include <gtest/gtest.h>

#include "download/categories.h"
#include "download/element_download.h"
#include "recording_sink.h"
#include "settings/memory_settings_store.h"

namespace norvane {
namespace {

TEST(Categories, TableRowsAndLookup) {
  ASSERT_EQ(categories().size(), 35u);
  EXPECT_EQ(categories()[0].label, "Last 30 Days' Launches");
  EXPECT_EQ(categories()[0].fileName, "tle-new");
  EXPECT_EQ(categories()[9].label, "Tracking and Data Relay Satellite System (TDRSS)");
  EXPECT_EQ(categories()[25].label, "Navy Navigation(NNSS)");
  EXPECT_EQ(categories()[34].fileName, "other");
  EXPECT_EQ(categories()[kIridiumCategory].fileName, "iridium");
  EXPECT_EQ(categories()[kFirstShownCategory].label, "International Space Station");
  EXPECT_EQ(findCategory("gps-ops"), 21);
  EXPECT_EQ(findCategory("WAAS/EGNOS/MSAS"), 24);
  EXPECT_EQ(findCategory("Iridium"), 15);
  EXPECT_EQ(findCategory("iridium2"), -1);
}

TEST(Categories, UrlAndCopyPath) {
  EXPECT_EQ(categoryUrl("https://example.org", "x-comm"), "https://example.org/NORAD/elements/x-comm.txt");
  EXPECT_EQ(categoryUrl("http://127.0.0.1:8000/mirror//", "geo"),
            "http://127.0.0.1:8000/mirror/NORAD/elements/geo.txt");
  // Templates: every field filled, nothing appended.
  EXPECT_EQ(categoryUrl(kDefaultElementServer, "gps-ops"),
            "https://celestrak.org/NORAD/elements/gp.php?GROUP=gps-ops&FORMAT=tle");
  EXPECT_EQ(categoryUrl("http://h/{group}/{group}.{format}?f={format}", "geo"), "http://h/geo/geo.tle?f=tle");
  EXPECT_EQ(categoryUrl("http://h/{format}/", "geo"), "http://h/{format}/NORAD/elements/geo.txt");
  EXPECT_EQ(serverHomePage(kDefaultElementServer), "https://celestrak.org/");
  EXPECT_EQ(serverHomePage("http://127.0.0.1:8000/mirror"), "http://127.0.0.1:8000/");
  EXPECT_EQ(serverHomePage("http://127.0.0.1:8000?GROUP={group}"), "http://127.0.0.1:8000/");
  EXPECT_EQ(downloadPath("/home/ana/Documents", "noaa"), "/home/ana/Documents/noaa.txt");
  EXPECT_EQ(downloadPath("/home/ana/Documents/", "noaa"), "/home/ana/Documents/noaa.txt");
}

// A client that must not be asked for anything once its session fails.
class ClosedClient : public HttpClient {
 public:
  bool open(const std::string&) override { return false; }
  HttpResponse fetch(const HttpRequest&) override {
    ADD_FAILURE() << "fetched without a session";
    return {};
  }
};

TEST(Download, OutOfRangeRowsAndAMissingSessionChangeNothing) {
  ClosedClient http;
  testing::RecordingSink sink;
  MemorySettingsStore store;
  DownloadContext context{http, sink, store, "http://127.0.0.1:9", "/nonexistent"};
  auto catalogue = std::make_unique<Catalogue>();
  catalogue->satelliteCount = 3;
  Settings settings;
  settings.flares = 1;
  std::int32_t mark = 1;
  DownloadTarget target{*catalogue, settings, mark};

  EXPECT_EQ(downloadCategory(-1, context, target).status, DownloadStatus::NotStarted);
  EXPECT_EQ(downloadCategory(35, context, target).status, DownloadStatus::NotStarted);
  EXPECT_TRUE(sink.shown.empty());

  EXPECT_EQ(downloadCategory(2, context, target).status, DownloadStatus::NoInternet);
  EXPECT_EQ(sink.shown,
            (std::vector<testing::RecordingSink::Shown>{{"Can't connect to Internet!", "", MessageIcon::Stop}}));
  EXPECT_EQ(mark, 1);
  EXPECT_EQ(settings.flares, 1);
  EXPECT_EQ(catalogue->satelliteCount, 3);
  EXPECT_EQ(store.writes, 0);
}

}  // namespace
}  // namespace norvane
