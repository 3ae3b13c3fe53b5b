#pragma once
#include <QDialog>

#include "core/platform/settings_store.h"
#include "settings/settings.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QSpinBox;

namespace norvane {

// "Radio": the radio (rigctld) and the rotator (rotctld) the tracker drives.
// Each has its own enable box, host, port, update period and tolerance; the
// rotator also its azimuth and elevation travel, flipping, minimum elevation
// and park position. OK writes settings.radio and saves the radio group.
class RadioDialog : public QDialog {
 public:
  RadioDialog(Settings& settings, SettingsStore& store, QWidget* parent = nullptr);
  void accept() override;

 private:
  Settings& settings_;
  SettingsStore& store_;
  QCheckBox* rigEnable_;
  QLineEdit* rigHost_;
  QSpinBox* rigPort_;
  QSpinBox* rigPeriod_;
  QDoubleSpinBox* rigTolerance_;
  QCheckBox* rotEnable_;
  QLineEdit* rotHost_;
  QSpinBox* rotPort_;
  QSpinBox* rotPeriod_;
  QDoubleSpinBox* rotTolerance_;
  QComboBox* azRange_;
  QComboBox* elRange_;
  QCheckBox* flip_;
  QDoubleSpinBox* minElevation_;
  QDoubleSpinBox* parkAz_;
  QDoubleSpinBox* parkEl_;
};

// Shows "Radio"; true when closed with OK.
bool runRadioDialog(QWidget* parent, Settings& settings, SettingsStore& store);

}  // namespace norvane
