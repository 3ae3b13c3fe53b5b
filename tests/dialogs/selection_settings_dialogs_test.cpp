#include <QCheckBox>
#include <algorithm>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "../download/recording_sink.h"
#include "../analysis/analysis_fixtures.h"
#include "../elements/tle_fixtures.h"
#include "core/elements/element_text.h"
#include "qt_fixture.h"
#include "settings/memory_settings_store.h"
#include "ui/dialogs/sat_selection_dialog.h"
#include "ui/dialogs/settings_dialog.h"

namespace norvane {
namespace {

using testing::DialogTest;

// Three satellites: "b" twice (slots 0 and 2) and "A" in slot 1.
Catalogue threeSatellites() {
  Catalogue c;
  const std::string text = test::issEntry("b") + test::issEntry("A") + test::issEntry("b");
  EXPECT_EQ(loadElementText(c, text), 3);
  c.selected = {};
  c.selected[2] = 1;
  return c;
}

int slotOf(const QTreeWidgetItem* row) { return row->text(4).trimmed().toInt(); }

class SelectionDialogTest : public DialogTest {};

TEST_F(SelectionDialogTest, ListsRowsByNameAndTicksBySlot) {
  Catalogue c = threeSatellites();
  AppState app;
  SatSelectionDialog dialog(c, app);
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1004")->text(), "3");
  QTreeWidget* list = dialog.list();
  ASSERT_EQ(list->topLevelItemCount(), 3);
  EXPECT_EQ(list->headerItem()->text(3), "Epoch");
  EXPECT_EQ(list->topLevelItem(0)->text(0), "A");
  EXPECT_EQ(list->topLevelItem(0)->text(4), "   1");
  for (int r = 0; r < 3; ++r) {
    const QTreeWidgetItem* row = list->topLevelItem(r);
    EXPECT_EQ(row->checkState(0) == Qt::Checked, slotOf(row) == 2) << r;
  }
}

TEST_F(SelectionDialogTest, ColumnsShowWholeAndNumbersSortAsNumbers) {
  auto c = test::bundled("visual_2017-04-14.txt");
  AppState app;
  app.currentTime = test::kVisualEpoch;
  SatSelectionDialog dialog(*c, app);
  dialog.show();
  QTreeWidget* list = dialog.list();
  expectColumnsWhole(*list);
  for (const int column : {1, 4}) {  // catalogue number, slot in the file
    list->sortByColumn(column, Qt::AscendingOrder);
    const std::vector<double> numbers = columnNumbers(*list, column);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end())) << column;
  }
}

TEST_F(SelectionDialogTest, OkTakesTicksAndTheHighlightedTickedRow) {
  Catalogue c = threeSatellites();
  AppState app;
  app.currentSatellite = 2;
  SatSelectionDialog dialog(c, app);
  QTreeWidget* list = dialog.list();
  for (int r = 0; r < 3; ++r) {
    QTreeWidgetItem* row = list->topLevelItem(r);
    if (slotOf(row) != 1) row->setCheckState(0, Qt::Checked);
    if (slotOf(row) == 0) row->setSelected(true);
  }
  press(dialog, QDialogButtonBox::Ok);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(c.selected[0], 1);
  EXPECT_EQ(c.selected[1], 0);
  EXPECT_EQ(c.selected[2], 1);
  EXPECT_EQ(app.currentSatellite, 0);  // highlighted and ticked wins over the last ticked row
}

TEST_F(SelectionDialogTest, CancelKeepsEverythingButTheToggle) {
  Catalogue c = threeSatellites();
  AppState app;
  app.currentSatellite = 2;
  {
    SatSelectionDialog dialog(c, app);
    dialog.list()->topLevelItem(0)->setCheckState(0, Qt::Checked);
    press(dialog, QDialogButtonBox::Cancel);
  }
  EXPECT_EQ(c.selected[1], 0);
  EXPECT_EQ(app.currentSatellite, 2);

  SatSelectionDialog dialog(c, app);
  auto* toggle = control<QPushButton>(dialog, "button1029");
  toggle->click();  // deselects every row at once
  EXPECT_EQ(c.selected[2], 0);
  EXPECT_EQ(app.currentSatellite, 0);
  toggle->click();
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(c.selected[0] + c.selected[1] + c.selected[2], 3);  // not undone by cancelling
}

TEST_F(SelectionDialogTest, TleInfoBox) {
  Catalogue c = threeSatellites();
  AppState app;
  app.currentSatellite = 1;
  testing::RecordingSink sink;
  showTleInfo(c, app, sink);
  ASSERT_EQ(sink.shown.size(), 1u);
  EXPECT_EQ(sink.shown[0].title, "Tle info");
  EXPECT_EQ(sink.shown[0].text.rfind(" Norad# 25544\r\n", 0), 0u);
}

class SettingsDialogTest : public DialogTest {};

TEST_F(SettingsDialogTest, OkAppliesFallbacksAndSavesTheGroup) {
  Settings s;
  MemorySettingsStore store;
  std::uint8_t test = 0;
  SettingsDialog dialog(s, store, test);
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1001")->text(), "138");
  EXPECT_EQ(control<QComboBox>(dialog, "combo1048")->currentIndex(), 5);
  control<QLineEdit>(dialog, "edit1001")->setText("0.5");
  control<QLineEdit>(dialog, "edit1002")->setText("2e7");
  control<QLineEdit>(dialog, "edit1004")->setText("25");
  control<QComboBox>(dialog, "combo1048")->setCurrentIndex(3);
  control<QCheckBox>(dialog, "check1061")->setChecked(true);
  control<QCheckBox>(dialog, "check1064")->setChecked(true);
  control<QCheckBox>(dialog, "check1026")->setChecked(true);
  press(dialog, QDialogButtonBox::Ok);
  EXPECT_EQ(s.uplink, 138.0);
  EXPECT_EQ(s.downlink, 130.0);
  EXPECT_EQ(s.satPredictMag, 20);
  EXPECT_EQ(s.starsMag, 3);
  EXPECT_EQ(s.flares, 1);
  EXPECT_EQ(s.flagPlanets, 1);
  EXPECT_EQ(test, 1);
  EXPECT_EQ(store.writes, 1);
  EXPECT_EQ(store.values.at("Stars_Mag"), (SettingBytes{3, 0}));
  EXPECT_EQ(store.values.count("test"), 0u);
}

TEST_F(SettingsDialogTest, LimitsKeptFrequenciesReadBackExactlyAndCancelChangesNothing) {
  EXPECT_EQ(UplinkOrFallback(1.0), 1.0);
  EXPECT_EQ(DownlinkOrFallback(1e7), 1e7);
  EXPECT_EQ(PredictionLimitOrFallback(0), 0);
  // OK without an edit keeps each frequency to the last bit (six digits made 437.812 of 437.8125).
  for (const double mhz : {437.8125, 1575.42, 145.82500000000002, 9999999.999999, 1.0000000000000002}) {
    Settings same;
    same.uplink = mhz, same.downlink = mhz;
    MemorySettingsStore saved;
    std::uint8_t off = 0;
    SettingsDialog reopened(same, saved, off);
    press(reopened, QDialogButtonBox::Ok);
    EXPECT_EQ(same.uplink, mhz);
    EXPECT_EQ(same.downlink, mhz);
  }
  Settings s;
  s.downlink = 437.8;
  MemorySettingsStore store;
  std::uint8_t test = 1;
  SettingsDialog dialog(s, store, test);
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1002")->text(), "437.8");
  EXPECT_TRUE(control<QCheckBox>(dialog, "check1026")->isChecked());
  control<QLineEdit>(dialog, "edit1002")->setText("145.9");
  control<QCheckBox>(dialog, "check1026")->setChecked(false);
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(s.downlink, 437.8);
  EXPECT_EQ(test, 1);
  EXPECT_EQ(store.writes, 0);
}

}  // namespace
}  // namespace norvane
