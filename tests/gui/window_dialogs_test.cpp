#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QListView>
#include <QTest>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTimeEdit>
#include <QProgressBar>
#include <QHeaderView>
#include <QTreeWidget>
#include <cmath>
#include <fstream>
#include <functional>
#include <memory>

#include "core/astro/julian_date.h"
#include "tests/download/fixture_server.h"
#include "tests/gui/window_fixture.h"

namespace norvane {
namespace {

using testing::TempFolder;

constexpr int kIssSlot = 106;  // in the bundled file
constexpr double kDegree = 0.017453292519943295;

// A system clock that is never really set.
class FakeSystemClock : public SystemClock {
 public:
  std::uint32_t tickCount() override { return 0; }
  LocalClockTime localTime() override { return {2017, 4, 14, 12, 0, 0, 0}; }
  bool setLocalTime(const LocalClockTime&) override { return ++sets, true; }
  void sleepMs(int) override {}
  int sets = 0;
};

// A window on the bundled elements at 2017-04-14 12:00 UTC, paused, over an
// in-memory store, recording its messages, without GPS; dialogs run for real.
struct Window : testing::WindowHome {
  explicit Window(std::string server = "http://127.0.0.1:9") {
    WindowConfig c = config(testing::BundledAt({2017, 4, 14, 12, 0, 0}, SimulationMode::Pause));
    c.systemClock = &clock;
    c.serverBase = std::move(server);
    c.documentsFolder = documents.path;
    window = std::make_unique<MainWindow>(c);
    window->show();
    sink.shown.clear();
  }
  ~Window() override { window.reset(); }

  // Runs a command and hands its dialog to act once it shows; a dialog that
  // act leaves open is cancelled. False when no dialog showed within 2 s.
  bool dialog(int command, const std::function<void(QDialog&)>& act) {
    bool seen = false;
    int polls = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (auto* d = qobject_cast<QDialog*>(modal); d != nullptr && !seen) {
        seen = true;
        poll.stop();
        act(*d);
        if (d->isVisible()) d->reject();
      } else if (++polls > 200) {
        poll.stop();
        if (modal != nullptr) modal->close();
      }
    });
    poll.start(10);
    window->runCommand(command);
    return seen;
  }

  TempFolder documents;
  FakeSystemClock clock;
};

template <typename W>
W* Control(QDialog& dialog, const char* id) {
  W* widget = dialog.findChild<W*>(QString::fromLatin1(id));
  EXPECT_NE(widget, nullptr) << id;
  return widget;
}

void Press(QDialog& dialog, QDialogButtonBox::StandardButton which) {
  dialog.findChild<QDialogButtonBox*>()->button(which)->click();
}

void Ok(QDialog& dialog) { Press(dialog, QDialogButtonBox::Ok); }
void Cancel(QDialog& dialog) { Press(dialog, QDialogButtonBox::Cancel); }

// Every dialog command opens its dialog and comes back to the information page
// on the standard screen, from a graphic view too.
TEST(WindowDialogs, EachCommandOpensItsDialogAndReturnsToTheInfoPage) {
  Window w;
  const std::pair<int, const char*> dialogs[] = {
      {kCmdGetLast, "Download Latest TLE data"}, {kCmdSettings, "Settings"}, {kCmdLocation, "Position"},
      {kCmdSatSelect, "Sat selection"},         {kCmdPredict, "Prediction"}, {kCmdGps, "GPS settings"},
      {kCmdTime, "Time"},                       {kCmdAbout, "About"}};
  for (const auto& [command, title] : dialogs) {
    w.window->runCommand(kCmdSkyView);
    ASSERT_TRUE(w.window->fullScreenView());
    QString shown;
    EXPECT_TRUE(w.dialog(command, [&](QDialog& d) { shown = d.windowTitle(); })) << title;
    EXPECT_EQ(shown, title);
    EXPECT_EQ(w.state().app.viewMode, ViewMode::Info) << title;
    EXPECT_FALSE(w.window->fullScreenView()) << title;
    EXPECT_TRUE(w.window->frame().showingInfo()) << title;
  }
  EXPECT_TRUE(w.sink.texts().empty());
}

TEST(WindowDialogs, OpenListsEveryElementFormatInTheLastFolder) {
  Window w;
  TempFolder files;
  for (const char* name : {"a.tle", "b.txt", "c.csv", "d.json", "e.dat"}) {
    std::ofstream(files / name) << "x\n";
  }
  w.state().settings.lastOpen = files / "b.txt";
  int listed = -1;
  ASSERT_TRUE(w.dialog(kCmdOpen, [&](QDialog& d) {
    auto* dialog = qobject_cast<QFileDialog*>(&d);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), "Open File");
    EXPECT_EQ(QDir(dialog->directory()).canonicalPath(), QDir(QString::fromStdString(files.path)).canonicalPath());
    EXPECT_EQ(dialog->findChild<QComboBox*>("fileTypeCombo")->currentText(), "All (*.tle)");
    auto* view = dialog->findChild<QListView*>("listView");
    ASSERT_NE(view, nullptr);
    for (int wait = 0; wait < 200 && listed != 4; ++wait) {  // the folder is read in the background
      QTest::qWait(10);
      listed = view->model()->rowCount(view->rootIndex());
    }
  }));
  EXPECT_EQ(listed, 4);  // .tle, .txt, .csv and .json; not .dat
}

TEST(WindowDialogs, TleInfoShowsItsBoxWithoutLeavingTheView) {
  Window w;
  w.window->runCommand(kCmdMapView);
  EXPECT_FALSE(w.dialog(kCmdTleInfo, [](QDialog&) {}));
  EXPECT_EQ(w.sink.titles(), std::vector<std::string>{"Tle info"});
  EXPECT_EQ(w.state().app.viewMode, ViewMode::Map);
}

// Cancelling is the dialog's own test; here OK reaches the window's state.
TEST(WindowDialogs, SettingsOkReachesTheWindowAndIsSaved) {
  Window w;
  EXPECT_TRUE(w.dialog(kCmdSettings, [](QDialog& d) {
    Control<QLineEdit>(d, "edit1001")->setText("145.8");
    Control<QCheckBox>(d, "check1026")->setChecked(true);  // "test"
    Control<QCheckBox>(d, "check1061")->setChecked(true);  // "Iridium flares"
    Ok(d);
  }));
  EXPECT_EQ(w.state().settings.uplink, 145.8);
  EXPECT_TRUE(w.state().infoOptions.modelComparison);
  EXPECT_EQ(w.state().app.flaresEnabled, 1);
  EXPECT_EQ(w.store.values.count("uplink"), 1u);
}

TEST(WindowDialogs, SatSelectionKeepsTheCurrentSatelliteInStep) {
  Window w;
  w.state().app.currentSatellite = 3;
  EXPECT_TRUE(w.dialog(kCmdSatSelect, [](QDialog& d) {
    Control<QPushButton>(d, "button1029")->click();  // "Sel./Desel.": none ticked
    auto* list = Control<QTreeWidget>(d, "list1021");
    for (int r = 0; r < list->topLevelItemCount(); ++r) {
      QTreeWidgetItem* row = list->topLevelItem(r);
      if (row->text(4).trimmed().toInt() == 5) row->setCheckState(0, Qt::Checked);
    }
    Ok(d);
  }));
  EXPECT_EQ(w.state().app.currentSatellite, 5);
  EXPECT_EQ(w.state().settings.satDisplay, 5);
  int ticked = 0;
  for (const std::int32_t s : w.state().catalogue.selected) ticked += s;
  EXPECT_EQ(ticked, 1);
  // "Sel./Desel." acts at once: cancelling keeps its current satellite 0.
  EXPECT_TRUE(w.dialog(kCmdSatSelect, [](QDialog& d) {
    Control<QPushButton>(d, "button1029")->click();
    Cancel(d);
  }));
  EXPECT_EQ(w.state().app.currentSatellite, 0);
  EXPECT_EQ(w.state().settings.satDisplay, 0);
}

TEST(WindowDialogs, PositionOkMovesTheObserverAndCancelDoesNot) {
  Window w;
  const Geodetic before = w.state().app.observer;
  EXPECT_TRUE(w.dialog(kCmdLocation, [](QDialog& d) {
    Control<QLineEdit>(d, "edit1041")->setText("-33.5");
    Cancel(d);
  }));
  EXPECT_EQ(w.state().app.observer.lat, before.lat);
  EXPECT_TRUE(w.dialog(kCmdLocation, [](QDialog& d) {
    EXPECT_GT(Control<QComboBox>(d, "combo1040")->count(), 100);  // the shipped Cities.loc
    Control<QLineEdit>(d, "edit1041")->setText("-33.5");
    Control<QLineEdit>(d, "edit1043")->setText("120");
    Ok(d);
  }));
  EXPECT_NEAR(w.state().app.observer.lat, -33.5 * kDegree, 1e-12);
  EXPECT_NEAR(w.state().app.observer.alt, 0.12, 1e-12);
  EXPECT_EQ(w.state().settings.lat, w.state().app.observer.lat);
  EXPECT_EQ(w.store.values.count("Lat"), 1u);
}

TEST(WindowDialogs, PredictionRowsSurviveAndOkPausesTheClockOnARow) {
  Window w;
  w.state().catalogue.selected = {};
  w.state().catalogue.selected[kIssSlot] = 1;
  w.state().app.utcOffset = 1.0 / 24.0;
  EXPECT_TRUE(w.dialog(kCmdPredict, [&](QDialog& d) {
    EXPECT_EQ(Control<QLineEdit>(d, "edit1000")->text(), "2");
    EXPECT_EQ(Control<QTimeEdit>(d, "time1030")->time(), QTime(13, 0, 0));  // local time
    Control<QLineEdit>(d, "edit1000")->setText("6");
    Control<QPushButton>(d, "button1027")->click();
    auto* list = Control<QTreeWidget>(d, "list1024");
    ASSERT_EQ(list->topLevelItemCount(), static_cast<int>(w.state().predictions.rows.size()));
    EXPECT_EQ(list->headerItem()->text(5), "Nr in file");
    EXPECT_EQ(list->topLevelItem(0)->text(5), "106");
    EXPECT_TRUE(list->topLevelItem(0)->text(0).endsWith("  "));
    for (int c = 0; c < 6; ++c) {  // the found rows show whole
      EXPECT_GE(list->header()->sectionSize(c), list->fontMetrics().horizontalAdvance(list->topLevelItem(0)->text(c)));
    }
    auto* satellites = Control<QProgressBar>(d, "progress1017");
    EXPECT_EQ(satellites->value(), satellites->maximum());
    EXPECT_EQ(satellites->maximum(), w.state().catalogue.satelliteCount);
    Cancel(d);
  }));
  ASSERT_GT(w.state().predictions.rows.size(), 1u);
  EXPECT_EQ(w.sink.titles(), std::vector<std::string>{"Search result"});
  EXPECT_EQ(w.sink.texts()[0].rfind("Number of passes ", 0), 0u);
  const std::size_t rows = w.state().predictions.rows.size();
  w.state().app.simulationMode = SimulationMode::X10;
  int listed = 0;
  EXPECT_TRUE(w.dialog(kCmdPredict, [&](QDialog& d) {
    auto* list = Control<QTreeWidget>(d, "list1024");
    listed = list->topLevelItemCount();
    list->topLevelItem(1)->setSelected(true);  // newest first: the second newest row
    Ok(d);
  }));
  EXPECT_EQ(listed, static_cast<int>(rows));
  EXPECT_EQ(w.state().app.simulationMode, SimulationMode::Pause);
  EXPECT_EQ(w.state().app.currentTime, w.state().predictions.rows[rows - 2].time);
  EXPECT_EQ(w.state().app.pausedTime, w.state().app.currentTime);
  EXPECT_EQ(w.state().app.currentSatellite, kIssSlot);
  EXPECT_EQ(w.state().settings.satDisplay, kIssSlot);
}

TEST(WindowDialogs, GpsSettingsKeepTrackingInStepAndSaveOnOk) {
  Window w;
  EXPECT_EQ(w.state().app.gpsTracking, 0);
  EXPECT_TRUE(w.dialog(kCmdGps, [](QDialog& d) {
    Control<QComboBox>(d, "combo1054")->setCurrentIndex(0);  // "NONE"
    Control<QCheckBox>(d, "check1049")->click();             // "Track GPS" on, at once
    Cancel(d);
  }));
  EXPECT_EQ(w.state().app.gpsTracking, 1);
  EXPECT_EQ(w.state().gpsSettings.tracking, 1);
  EXPECT_EQ(w.store.values.count("GPSPort"), 0u);
  EXPECT_TRUE(w.dialog(kCmdGps, [](QDialog& d) {
    EXPECT_TRUE(Control<QCheckBox>(d, "check1049")->isChecked());
    Control<QComboBox>(d, "combo1054")->setCurrentIndex(0);
    Control<QCheckBox>(d, "check1049")->setChecked(false);
    Ok(d);
  }));
  EXPECT_EQ(w.state().app.gpsTracking, 0);
  EXPECT_EQ(w.state().gpsSettings.tracking, 0);
  EXPECT_EQ(w.state().settings.gpsPort, 0);
  EXPECT_EQ(w.store.values.count("GPSPort"), 1u);
}

TEST(WindowDialogs, TimeOkSetsTheModeAndSetGpsTimeAsksForTracking) {
  Window w;
  const double start = w.state().app.currentTime;
  EXPECT_TRUE(w.dialog(kCmdTime, [](QDialog& d) {
    Control<QRadioButton>(d, "radio1038")->click();  // "x60 sym time"
    Control<QPushButton>(d, "button1043")->click();  // "Set GPS time"
    Cancel(d);
  }));
  EXPECT_EQ(w.state().app.simulationMode, SimulationMode::Pause);
  EXPECT_EQ(w.sink.texts(), std::vector<std::string>{"Turn GPS tracking on!"});
  EXPECT_EQ(w.clock.sets, 0);
  EXPECT_TRUE(w.dialog(kCmdTime, [](QDialog& d) {
    Control<QRadioButton>(d, "radio1038")->click();
    Ok(d);
  }));
  EXPECT_EQ(w.state().app.simulationMode, SimulationMode::X60);
  EXPECT_NEAR((w.state().app.currentTime - start) * 86400.0, 0.0, 1e-3);
  w.window->tick();
  EXPECT_NEAR((w.state().app.currentTime - start) * 86400.0, 60.0, 1e-3);
}

TEST(WindowDialogs, GetLastDownloadsFromTheServerIntoTheDocumentsFolder) {
  testing::ElementServer server;  // tests/download/element_server.py
  server.start();
  ASSERT_NE(server.port(), 0);
  Window w(server.base("ok"));
  const std::filesystem::path copy = w.documents / "stations.txt";
  EXPECT_TRUE(w.dialog(kCmdGetLast, [](QDialog& d) { Cancel(d); }));
  EXPECT_FALSE(std::filesystem::exists(copy));
  EXPECT_TRUE(w.sink.texts().empty());
  w.state().app.iridiumFile = 1;
  EXPECT_TRUE(w.dialog(kCmdGetLast, [](QDialog& d) {
    EXPECT_EQ(Control<QComboBox>(d, "combo1059")->currentText(), "International Space Station");
    Control<QPushButton>(d, "button1058")->click();  // "Download" closes the dialog
  }));
  ASSERT_EQ(w.sink.texts().size(), 1u);
  EXPECT_EQ(w.sink.texts()[0],
            "Data of 144 satellites successfully read from " + server.base("ok") + "/NORAD/elements/stations.txt.");
  EXPECT_EQ(w.state().catalogue.satelliteCount, 144);
  EXPECT_EQ(w.state().settings.lastOpen, copy.string());
  EXPECT_EQ(std::filesystem::file_size(copy), std::filesystem::file_size(testing::BundledElements()));
  EXPECT_EQ(w.state().app.iridiumFile, 0);
  EXPECT_EQ(w.state().app.viewMode, ViewMode::Info);
}

TEST(WindowDialogs, CtrlQDuringADownloadAbandonsIt) {
  testing::ElementServer server;  // tests/download/element_server.py: its trickling file takes 2.5 s
  server.start();
  ASSERT_NE(server.port(), 0);
  Window w(server.base("trickle"));
  const int before = w.state().catalogue.satelliteCount;
  QTimer quit;
  quit.setSingleShot(true);
  QObject::connect(&quit, &QTimer::timeout, w.window.get(), [&] { w.window->runCommand(kCmdClose); });  // what Ctrl+Q runs
  EXPECT_TRUE(w.dialog(kCmdGetLast, [&](QDialog& d) {
    quit.start(400);
    Control<QPushButton>(d, "button1058")->click();
  }));
  EXPECT_FALSE(w.window->isVisible());
  EXPECT_FALSE(std::filesystem::exists(w.documents / "stations.txt"));
  EXPECT_TRUE(w.sink.texts().empty());
  EXPECT_EQ(w.state().catalogue.satelliteCount, before);
}

}  // namespace
}  // namespace norvane
