#include <QDoubleSpinBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/astro/julian_date.h"
#include "settings/memory_settings_store.h"
#include "tests/dialogs/qt_fixture.h"
#include "ui/dialogs/passes_dialog.h"

namespace norvane {
namespace {

constexpr double kMinute = 1.0 / 1440.0;

class Sink : public MessageSink {
 public:
  void show(const std::string& text, const std::string&, MessageIcon) override { texts.push_back(text); }
  std::vector<std::string> texts;
};

PlannedPass Pass(int slot, const char* name, double aos, double minutes, double maxElevation) {
  PlannedPass p;
  p.slot = slot;
  p.catnr = 1000 + slot;
  p.name = name;
  p.aos = aos;
  p.tca = aos + minutes / 2 * kMinute;
  p.los = aos + minutes * kMinute;
  p.tcaElevation = maxElevation;
  p.aosAzimuth = 200;
  p.tcaAzimuth = 280;
  p.losAzimuth = 10;
  return p;
}

class PassesDialogTest : public testing::DialogTest {
 protected:
  PassesDialogTest() {
    app.currentTime = JulianDateOfDate(2017, 4, 14, 20, 0, 0);
    app.utcOffset = 2.0 / 24;
    app.currentSatellite = 4;
    const double now = app.currentTime;
    all = {Pass(1, "GONE", now - 30 * kMinute, 10, 40), Pass(2, "UNDER WAY", now - 3 * kMinute, 10, 20),
           Pass(3, "ISS (ZARYA)", now + 60 * kMinute, 10, 67), Pass(5, "LOW ONE", now + 90 * kMinute, 6, 4),
           Pass(3, "ISS (ZARYA)", now + 1.5, 10, 30)};
    all[2].visible = true;
    all[2].visibleStart = all[2].aos + kMinute;
    all[2].visibleEnd = all[2].los;
    all[2].minMagnitude = -2.5;
  }
  PassesContext context() {
    return {app, settings, store, sink, [this](double minElevation) {
              asked.push_back(minElevation);
              std::vector<PlannedPass> out;
              for (const PlannedPass& p : all) {
                if (p.tcaElevation >= minElevation) out.push_back(p);
              }
              return out;
            }};
  }
  AppState app;
  Settings settings;
  MemorySettingsStore store;
  Sink sink;
  std::vector<PlannedPass> all;
  std::vector<double> asked;
};

// The list holds what is still to come within a day, a pass under way
// included, in local time, with the visible part and magnitude.
TEST_F(PassesDialogTest, ListsTheComingDayInLocalTime) {
  PassesDialog dialog(context());
  QTreeWidget* list = control<QTreeWidget>(dialog, "passList");
  ASSERT_EQ(list->topLevelItemCount(), 3);
  EXPECT_EQ(list->topLevelItem(0)->text(0), "UNDER WAY");
  QTreeWidgetItem* iss = list->topLevelItem(1);
  EXPECT_EQ(iss->text(0), "ISS (ZARYA)");
  EXPECT_EQ(iss->text(1), "04-14 23:00:00");  // 21:00 UTC, two hours ahead
  EXPECT_EQ(iss->text(2), "23:05:00");
  EXPECT_EQ(iss->text(3), "23:10:00");
  EXPECT_EQ(iss->text(4), "67°");
  EXPECT_EQ(iss->text(5), "200° / 280° /  10°");
  EXPECT_EQ(iss->text(6), "23:01:00–23:10:00");
  EXPECT_EQ(iss->text(7), "-2.5");
  EXPECT_EQ(list->topLevelItem(2)->text(6), "");
  EXPECT_EQ(list->topLevelItem(2)->text(7), "");

  control<QDoubleSpinBox>(dialog, "minElevation")->setValue(10);
  dialog.refresh();
  EXPECT_EQ(asked.back(), 10);
  EXPECT_EQ(list->topLevelItemCount(), 2);
}

// OK keeps the three settings and saves them; a chosen row makes its
// satellite current, no row leaves the current one.
TEST_F(PassesDialogTest, OkSavesTheSettingsAndTakesTheChosenSatellite) {
  {
    PassesDialog dialog(context());
    control<QSpinBox>(dialog, "alarmMinutes")->setValue(7);
    control<QComboBox>(dialog, "alarmScope")->setCurrentIndex(1);
    control<QDoubleSpinBox>(dialog, "minElevation")->setValue(5);
    press(dialog, QDialogButtonBox::Ok);
  }
  EXPECT_EQ(app.currentSatellite, 4);
  EXPECT_EQ(settings.passAlarmMinutes, 7);
  EXPECT_EQ(settings.passAlarmScope, 1);
  EXPECT_EQ(settings.passMinElevation, 5);
  ASSERT_EQ(store.values.count("PassMinElevation"), 1u);
  EXPECT_EQ(store.values["PassMinElevation"].size(), 8u);
  EXPECT_EQ(store.values["PassAlarmMinutes"], (SettingBytes{7, 0, 0, 0}));
  EXPECT_EQ(store.values["PassAlarmScope"], (SettingBytes{1, 0, 0, 0}));

  PassesDialog dialog(context());
  QTreeWidget* list = control<QTreeWidget>(dialog, "passList");
  list->setCurrentItem(list->topLevelItem(1));
  emit list->itemDoubleClicked(list->topLevelItem(1), 0);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(app.currentSatellite, 3);

  const int writes = store.writes;
  PassesDialog cancelled(context());
  control<QSpinBox>(cancelled, "alarmMinutes")->setValue(30);
  press(cancelled, QDialogButtonBox::Cancel);
  EXPECT_EQ(settings.passAlarmMinutes, 7);
  EXPECT_EQ(store.writes, writes);
}

TEST_F(PassesDialogTest, ExportWritesTheListedPassesAsACalendar) {
  const auto folder = std::filesystem::temp_directory_path() / "norvane_passes_export";
  std::filesystem::create_directories(folder);
  const std::string path = (folder / "passes.ics").string();
  PassesDialog dialog(context());
  dialog.exportPathChooser = [&] { return std::optional<std::string>(path); };
  control<QPushButton>(dialog, "exportButton")->click();
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  EXPECT_NE(text.str().find("BEGIN:VCALENDAR"), std::string::npos);
  EXPECT_NE(text.str().find("ISS (ZARYA) pass"), std::string::npos);
  EXPECT_EQ(text.str().find("GONE"), std::string::npos) << "only the listed passes";
  EXPECT_TRUE(sink.texts.empty());

  EXPECT_FALSE(dialog.exportTo((folder / "missing" / "passes.ics").string()));
  EXPECT_EQ(sink.texts.size(), 1u);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace norvane
