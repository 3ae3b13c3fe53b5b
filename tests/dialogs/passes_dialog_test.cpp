#include <QComboBox>
#include <QDoubleSpinBox>
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

class PassesDialogTest : public testing::DialogTest, public MessageSink {
 protected:
  PassesDialogTest() {
    app.currentTime = JulianDateOfDate(2017, 4, 14, 20, 0, 0);
    app.utcOffset = 2.0 / 24;
    app.currentSatellite = 4;
    // Gone, under way, to come (visible), to come (low), beyond the day.
    const double starts[] = {-30, -3, 60, 90, 1.5 * 1440};
    const double heights[] = {40, 20, 67, 4, 30};
    const int owners[] = {1, 2, 3, 5, 3};
    for (int i = 0; i < 5; ++i) {
      PlannedPass p;
      p.slot = owners[i];
      p.name = "SAT " + std::to_string(owners[i]);
      p.aos = app.currentTime + starts[i] * kMinute;
      p.tca = p.aos + 5 * kMinute;
      p.los = p.aos + 10 * kMinute;
      p.tcaElevation = heights[i];
      all.push_back(p);
    }
    all[2].visible = true, all[2].visibleStart = all[2].tca, all[2].visibleEnd = all[2].los;
    all[2].minMagnitude = -2.5;
  }
  void show(const std::string& text, const std::string&, MessageIcon) override { messages.push_back(text); }
  PassesContext context() {
    return {app, settings, store, *this, [this](double minElevation) {
              std::vector<PlannedPass> out;
              std::copy_if(all.begin(), all.end(), std::back_inserter(out),
                           [&](const PlannedPass& p) { return p.tcaElevation >= minElevation; });
              return out;
            }};
  }
  AppState app;
  Settings settings;
  MemorySettingsStore store;
  std::vector<std::string> messages;
  std::vector<PlannedPass> all;
};

// What is still to come within a day, a pass under way included, in local time.
TEST_F(PassesDialogTest, ListsTheComingDayInLocalTime) {
  PassesDialog dialog(context());
  QTreeWidget* list = control<QTreeWidget>(dialog, "passList");
  ASSERT_EQ(list->topLevelItemCount(), 3);
  EXPECT_EQ(list->topLevelItem(0)->text(0), "SAT 2");
  const QTreeWidgetItem* row = list->topLevelItem(1);
  EXPECT_EQ(row->text(1), "04-14 23:00:00");  // 21:00 UTC, two hours ahead
  EXPECT_EQ(row->text(6), "23:05:00–23:10:00");
  EXPECT_EQ(row->text(7), "-2.5");
  EXPECT_EQ(list->topLevelItem(2)->text(7), "") << "not visible: no magnitude";
  control<QDoubleSpinBox>(dialog, "minElevation")->setValue(10);
  dialog.refresh();
  EXPECT_EQ(list->topLevelItemCount(), 2);
}

// OK keeps and saves the settings and takes a chosen row's satellite; Cancel
// changes nothing; Export writes the listed passes.
TEST_F(PassesDialogTest, OkCancelAndExport) {
  {
    PassesDialog dialog(context());
    control<QSpinBox>(dialog, "alarmMinutes")->setValue(7);
    control<QComboBox>(dialog, "alarmScope")->setCurrentIndex(1);
    press(dialog, QDialogButtonBox::Ok);
  }
  EXPECT_EQ(app.currentSatellite, 4) << "no row chosen";
  EXPECT_EQ(settings.passAlarmScope, 1);
  EXPECT_EQ(store.values["PassAlarmMinutes"], (SettingBytes{7, 0, 0, 0}));

  PassesDialog cancelled(context());
  control<QSpinBox>(cancelled, "alarmMinutes")->setValue(30);
  press(cancelled, QDialogButtonBox::Cancel);
  EXPECT_EQ(settings.passAlarmMinutes, 7);

  PassesDialog dialog(context());
  const auto folder = std::filesystem::temp_directory_path() / "norvane_passes_export";
  std::filesystem::create_directories(folder);
  const std::string path = (folder / "passes.ics").string();
  dialog.exportPathChooser = [&] { return std::optional<std::string>(path); };
  control<QPushButton>(dialog, "exportButton")->click();
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_NE(text.str().find("SAT 3 pass"), std::string::npos);
  EXPECT_EQ(text.str().find("SAT 1"), std::string::npos) << "only the listed passes";
  EXPECT_FALSE(dialog.exportTo((folder / "missing" / "passes.ics").string()));
  EXPECT_EQ(messages.size(), 1u);
  std::filesystem::remove_all(folder);

  QTreeWidget* list = dialog.list();
  list->setCurrentItem(list->topLevelItem(1));
  emit list->itemDoubleClicked(list->topLevelItem(1), 0);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(app.currentSatellite, 3);
}

}  // namespace
}  // namespace norvane
