#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "settings/settings.h"
#include "ui/dialogs/cities_file.h"
#include "ui/views/app_state.h"

class QComboBox;
class QLineEdit;

namespace norvane {

// The observer's inertial position at jd as the dialog shows it: "X %.3f km" etc.
std::string ObserverInertialText(const Geodetic& observer, double jd, int axis);

// "Position": the observer's latitude edit1041 and longitude edit1042
// (degrees, north and east positive) and altitude edit1043 (metres), the
// named places combo1040, and the observer's inertial coordinates at the
// program's time (edit1044 to edit1046, read-only). Opening reloads every
// setting from the store to preselect the place, as the program always has
// ("Can't read registry entries!" when the store cannot be read); OK sets the
// observer and saves the location group.
class PositionDialog : public QDialog {
 public:
  PositionDialog(AppState& app, Settings& settings, SettingsStore& store, std::vector<City> cities,
                 MessageSink& messages, QWidget* parent = nullptr);
  void accept() override;

 private:
  void placeChosen(int index);
  void showInertial();
  bool readObserver(Geodetic& observer) const;

  AppState& app_;
  Settings& settings_;
  SettingsStore& store_;
  std::vector<City> cities_;
  QComboBox* places_;
  QLineEdit* lat_;
  QLineEdit* lon_;
  QLineEdit* alt_;
  QLineEdit* inertial_[3];
};

// Shows "Position" with the places of Cities.loc in programFolder; true when closed with OK.
bool runPositionDialog(QWidget* parent, AppState& app, Settings& settings, SettingsStore& store,
                       MessageSink& messages, const std::string& programFolder);

}  // namespace norvane
