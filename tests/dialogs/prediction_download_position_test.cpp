#include <QComboBox>
#include <QLabel>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimeEdit>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>

#include "../analysis/analysis_fixtures.h"
#include "../download/recording_sink.h"
#include "../elements/tle_fixtures.h"
#include "core/astro/julian_date.h"
#include "qt_fixture.h"
#include "settings/memory_settings_store.h"
#include "ui/dialogs/download_dialog.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/prediction_dialog.h"

namespace norvane {
namespace {

using testing::DialogTest;

struct PredictionWorld {
  std::unique_ptr<Catalogue> catalogue = test::bundled("visual_2017-04-14.txt");
  AppState app;
  Settings settings;
  PredictionStore store;
  LookAngleCache cache;
  ModelState models;
  testing::RecordingSink sink;
  PredictionWorld() {
    catalogue->selected = {};
    catalogue->selected[test::kIssSlot] = 1;
    app.currentTime = test::kVisualEpoch;
    app.utcOffset = 1.0 / 24.0;
  }
  PredictionContext context() { return {*catalogue, app, settings, store, cache, models, sink}; }
};

class PredictionDialogTest : public DialogTest {};

TEST_F(PredictionDialogTest, ReopeningListsStoredRowsSortsByNumberAndCancelKeepsTheClock) {
  PredictionWorld w;
  w.store.rows = {{test::kVisualEpoch, test::kIssSlot, 4, -1.25, 0}, {test::kVisualEpoch + 0.01, 0, 1, -20, 0}};
  PredictionDialog dialog(w.context());
  QTreeWidget* list = dialog.list();
  ASSERT_EQ(list->topLevelItemCount(), 2);
  EXPECT_EQ(list->topLevelItem(1)->text(3), "-1.2");  // "%2.1f" on reopening
  EXPECT_EQ(list->topLevelItem(1)->text(2), "Visible");
  EXPECT_EQ(list->topLevelItem(0)->text(3), "N/A");
  EXPECT_EQ(list->topLevelItem(1)->text(1), "2017-4-14 13:00:00");
  dialog.show();
  expectColumnsWhole(*list);
  list->topLevelItem(1)->setSelected(true);
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(w.app.simulationMode, SimulationMode::RealTime);
  EXPECT_EQ(w.app.currentTime, test::kVisualEpoch);
  EXPECT_EQ(w.app.currentSatellite, 0);

  // Sorted by magnitude as numbers ("N/A" last), a row still takes its own stored time.
  w.store.rows.push_back({test::kVisualEpoch + 0.02, 3, 4, 10.5, 0});
  w.store.rows.push_back({test::kVisualEpoch + 0.03, 4, 4, 2.0, 0});
  PredictionDialog sorted(w.context());
  list = sorted.list();
  list->sortByColumn(3, Qt::AscendingOrder);
  EXPECT_EQ(columnNumbers(*list, 3), (std::vector<double>{-1.2, 2.0, 10.5}));
  EXPECT_EQ(list->topLevelItem(3)->text(3), "N/A");
  list->topLevelItem(2)->setSelected(true);
  press(sorted, QDialogButtonBox::Ok);
  EXPECT_EQ(w.app.currentSatellite, 3);
  EXPECT_EQ(w.app.pausedTime, test::kVisualEpoch + 0.02);
}

// Serves one element file for every URL, or nothing.
struct FixedHttp : HttpClient {
  bool open(const std::string&) override { return true; }
  HttpResponse fetch(const HttpRequest& request) override {
    urls.push_back(request.url);
    HttpResponse response;
    if (body.empty()) return response;
    response.outcome = HttpOutcome::Received;
    response.body = body.substr(0, request.maxBytes);
    return response;
  }
  std::string body;
  std::vector<std::string> urls;
};

struct DownloadWorld {
  QTemporaryDir folder;
  FixedHttp http;
  testing::RecordingSink sink;
  MemorySettingsStore store;
  DownloadContext context{http, sink, store, "http://127.0.0.1:9", folder.path().toStdString()};
  Catalogue catalogue;
  Settings settings;
  std::int32_t iridium = 0;
  DownloadTarget target{catalogue, settings, iridium};
};

class DownloadDialogTest : public DialogTest {};

TEST_F(DownloadDialogTest, DownloadLoadsSavesAndCloses) {
  DownloadWorld w;
  w.http.body = test::issEntry();
  w.settings.flares = 1;
  std::string opened;
  DownloadDialog dialog(w.context, w.target, "http://127.0.0.1:9/", [&](const std::string& u) { opened = u; });
  auto* list = control<QComboBox>(dialog, "combo1059");
  ASSERT_EQ(list->count(), 35);
  EXPECT_EQ(list->currentText(), "International Space Station");
  control<QPushButton>(dialog, "button1043")->click();
  EXPECT_EQ(opened, "http://127.0.0.1:9/");
  EXPECT_EQ(control<QLabel>(dialog, "requestUrl")->text(), "http://127.0.0.1:9/NORAD/elements/stations.txt");
  list->setCurrentIndex(15);
  EXPECT_EQ(control<QLabel>(dialog, "requestUrl")->text(), "http://127.0.0.1:9/NORAD/elements/iridium.txt");
  control<QPushButton>(dialog, "button1058")->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.downloadResult().status, DownloadStatus::Saved);
  EXPECT_EQ(w.http.urls.at(0), "http://127.0.0.1:9/NORAD/elements/iridium.txt");
  EXPECT_EQ(w.catalogue.satelliteCount, 1);
  EXPECT_EQ(w.iridium, 1);
  EXPECT_EQ(w.settings.flares, 1);
  EXPECT_TRUE(QFile::exists(w.folder.filePath("iridium.txt")));
}

TEST_F(DownloadDialogTest, FailedFetchAndCancelLoadNothing) {
  DownloadWorld w;
  w.settings.flares = 1;
  {
    DownloadDialog dialog(w.context, w.target, "", nullptr);
    press(dialog, QDialogButtonBox::Cancel);
    EXPECT_TRUE(w.http.urls.empty());
  }
  DownloadDialog dialog(w.context, w.target, "", nullptr);
  control<QPushButton>(dialog, "button1058")->click();
  EXPECT_EQ(dialog.downloadResult().status, DownloadStatus::NoUrl);
  EXPECT_EQ(w.sink.shown.at(0).text, "Can't connect to url!");
  EXPECT_EQ(w.catalogue.satelliteCount, 0);
  EXPECT_EQ(w.settings.flares, 0);  // any row but Iridium switches flares off
}

struct PositionWorld {
  AppState app;
  Settings settings;
  MemorySettingsStore store;
  testing::RecordingSink sink;
  std::vector<City> cities{{"Kiel, DE", 54.3233, 10.1228, 5}, {"La Paz, BO", -16.5, -68.15, 3640}};
};

class PositionDialogTest : public DialogTest {};

TEST_F(PositionDialogTest, PlaceChosenAndSaved) {
  PositionWorld w;
  w.store.values["City"] = {1, 0, 0, 0};
  w.app.currentTime = test::kVisualEpoch;
  PositionDialog dialog(w.app, w.settings, w.store, w.cities, w.sink);
  EXPECT_TRUE(w.sink.shown.empty());
  auto* places = control<QComboBox>(dialog, "combo1040");
  EXPECT_EQ(places->currentIndex(), 1);
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1041")->text(), "54.3023");  // the default observer
  const QString x = control<QLineEdit>(dialog, "edit1044")->text();
  EXPECT_TRUE(x.startsWith("X ") && x.endsWith(" km")) << x.toStdString();
  places->setCurrentIndex(1);
  emit places->activated(1);
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1043")->text(), "3640");
  EXPECT_NE(control<QLineEdit>(dialog, "edit1044")->text(), x);
  press(dialog, QDialogButtonBox::Ok);
  EXPECT_NEAR(w.app.observer.lat * 180.0 / M_PI, -16.5, 1e-9);
  EXPECT_NEAR(w.app.observer.alt, 3.64, 1e-12);
  EXPECT_EQ(w.settings.lon, w.app.observer.lon);
  EXPECT_EQ(w.store.values.at("City"), (SettingBytes{1, 0, 0, 0}));
  EXPECT_EQ(w.store.values.at("Alt").size(), 8u);
}

TEST_F(PositionDialogTest, UnreadableStoreAndBadNumbers) {
  PositionWorld w;
  w.store.isReadable = false;
  const Geodetic before = w.app.observer;
  PositionDialog dialog(w.app, w.settings, w.store, w.cities, w.sink);
  ASSERT_EQ(w.sink.shown.size(), 1u);
  EXPECT_EQ(w.sink.shown[0].text, "Can't read registry entries!");
  control<QLineEdit>(dialog, "edit1041")->setText("91");
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1044")->text(), "");
  press(dialog, QDialogButtonBox::Ok);
  EXPECT_NE(dialog.result(), QDialog::Accepted);  // stays open
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(w.app.observer.lat, before.lat);
  EXPECT_EQ(w.store.writes, 0);
}

}  // namespace
}  // namespace norvane
