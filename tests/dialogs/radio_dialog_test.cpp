// "Radio": what OK keeps and saves, and that Cancel changes nothing.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>

#include "settings/memory_settings_store.h"
#include "tests/dialogs/qt_fixture.h"
#include "ui/dialogs/radio_dialog.h"

namespace norvane {
namespace {

class RadioDialogTest : public testing::DialogTest {};

TEST_F(RadioDialogTest, OkKeepsEveryFieldAndSavesTheRadioGroupOnly) {
  Settings settings;
  MemorySettingsStore store;
  RadioDialog dialog(settings, store);
  EXPECT_EQ(control<QSpinBox>(dialog, "radioRigPort")->value(), 4532);
  EXPECT_EQ(control<QSpinBox>(dialog, "radioRotPort")->value(), 4533);
  EXPECT_FALSE(control<QCheckBox>(dialog, "radioRigEnable")->isChecked());
  control<QCheckBox>(dialog, "radioRigEnable")->setChecked(true);
  control<QLineEdit>(dialog, "radioRigHost")->setText("  ");  // blank: back to the local host
  control<QSpinBox>(dialog, "radioRigPeriod")->setValue(20);   // below the shortest period
  control<QCheckBox>(dialog, "radioRotEnable")->setChecked(true);
  control<QLineEdit>(dialog, "radioRotHost")->setText("shack-pi");
  control<QSpinBox>(dialog, "radioRotPort")->setValue(14533);
  control<QComboBox>(dialog, "radioAzRange")->setCurrentIndex(2);
  control<QComboBox>(dialog, "radioElRange")->setCurrentIndex(1);
  control<QCheckBox>(dialog, "radioFlip")->setChecked(false);
  control<QDoubleSpinBox>(dialog, "radioMinEl")->setValue(5);
  control<QDoubleSpinBox>(dialog, "radioParkAz")->setValue(180);
  control<QDoubleSpinBox>(dialog, "radioParkEl")->setValue(95);
  press(dialog, QDialogButtonBox::Ok);

  const RadioSettings& r = settings.radio;
  EXPECT_EQ(r.rigEnable, 1);
  EXPECT_EQ(r.rigHost, "127.0.0.1");
  EXPECT_EQ(r.rigPeriodMs, 100);
  EXPECT_EQ(r.rotEnable, 1);
  EXPECT_EQ(r.rotHost, "shack-pi");
  EXPECT_EQ(r.rotPort, 14533);
  EXPECT_EQ(r.rotAzRange, 2);
  EXPECT_EQ(r.rotElRange, 1);
  EXPECT_EQ(r.rotFlip, 0);
  EXPECT_EQ(r.rotMinElevation, 5.0);
  EXPECT_EQ(r.rotParkAz, 180.0);
  EXPECT_EQ(r.rotParkEl, 95.0);
  EXPECT_EQ(store.writes, 1);
  EXPECT_EQ(store.values.count("RotParkEl"), 1u);
  EXPECT_EQ(store.values.count("uplink"), 0u);
}

TEST_F(RadioDialogTest, CancelLeavesSettingsAndStoreAlone) {
  Settings settings;
  MemorySettingsStore store;
  RadioDialog dialog(settings, store);
  control<QCheckBox>(dialog, "radioRigEnable")->setChecked(true);
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(settings.radio.rigEnable, 0);
  EXPECT_EQ(store.writes, 0);
}

}  // namespace
}  // namespace norvane
