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

  // What the radio and the rotator each have: on or off, where the daemon
  // listens, how often it is told and what change is worth telling.
  struct DaemonFields {
    QCheckBox* enable;
    QLineEdit* host;
    QSpinBox* port;
    QSpinBox* period;
    QDoubleSpinBox* tolerance;
  };
 private:
  Settings& settings_;
  SettingsStore& store_;
  DaemonFields rig_;
  DaemonFields rot_;
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
