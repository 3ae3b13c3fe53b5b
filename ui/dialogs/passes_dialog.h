#pragma once
#include <QDialog>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/analysis/pass_planner.h"
#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "settings/settings.h"
#include "ui/views/app_state.h"

class QComboBox;
class QDoubleSpinBox;
class QSpinBox;
class QTreeWidget;

namespace norvane {

// What the "Passes" dialog works on.
struct PassesContext {
  AppState& app;            // clock and UTC shift; OK makes the chosen pass's satellite current
  Settings& settings;       // minimum elevation, alarm minutes and scope; saved on OK
  SettingsStore& store;
  MessageSink& messages;    // a calendar that cannot be written
  // The passes of the selected satellites at a minimum elevation (deg), sorted by AOS.
  std::function<std::vector<PlannedPass>(double minElevationDeg)> plan;
};

// "Passes": passList of the passes of the coming day (satellite, AOS, TCA,
// LOS in local time, maximum elevation, azimuths, visible part and
// magnitude), the minimum elevation (minElevation), the alarm (alarmMinutes,
// alarmScope) and "Export" (exportButton) to an iCalendar file. OK, or a
// double click on a row, makes that row's satellite current and keeps the
// settings.
class PassesDialog : public QDialog {
 public:
  PassesDialog(const PassesContext& context, QWidget* parent = nullptr);
  void accept() override;

  // Lists the passes again at the minimum elevation shown.
  void refresh();
  // Writes the listed passes to an iCalendar file; false (and a message) on failure.
  bool exportTo(const std::string& path);

  QTreeWidget* list() const { return list_; }
  const std::vector<PlannedPass>& listed() const { return listed_; }

  // Where "Export" writes; a save-file dialog unless a test replaces it.
  std::function<std::optional<std::string>()> exportPathChooser;

 private:
  PassesContext context_;
  QTreeWidget* list_;
  QDoubleSpinBox* minElevation_;
  QSpinBox* alarmMinutes_;
  QComboBox* alarmScope_;
  std::vector<PlannedPass> listed_;
};

// Shows "Passes"; true when closed with OK.
bool runPassesDialog(QWidget* parent, const PassesContext& context);

}  // namespace norvane
