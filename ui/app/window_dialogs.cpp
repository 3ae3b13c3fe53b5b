#include "ui/app/window_dialogs.h"

#include <cstdint>

#include "download/fetch_log.h"
#include "download/platform_http.h"
#include "ui/app/about_dialog.h"
#include "ui/dialogs/download_dialog.h"
#include "ui/dialogs/passes_dialog.h"
#include "ui/dialogs/gps_settings_dialog.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/prediction_dialog.h"
#include "ui/dialogs/radio_dialog.h"
#include "ui/dialogs/sat_selection_dialog.h"
#include "ui/dialogs/settings_dialog.h"
#include "ui/dialogs/time_dialog.h"

namespace norvane {
namespace {

void RunSettings(QWidget* parent, DialogServices& d) {
  MainState& s = d.state;
  std::uint8_t test = s.infoOptions.modelComparison ? 1 : 0;
  runSettingsDialog(parent, s.settings, d.store, test);
  s.infoOptions.modelComparison = test == 1;
}

void RunGpsSettings(QWidget* parent, DialogServices& d) {
  MainState& s = d.state;
  s.gpsSettings.tracking = s.app.gpsTracking;
  runGpsSettingsDialog(parent, {s.gpsSettings, s.settings, d.store, s.app, d.gps, d.messages});
}

void RunTime(QWidget* parent, DialogServices& d) {
  GpsThread& gps = d.gps;
  runTimeDialog(parent, d.state.app, {[&gps] { return gps.data(); }, d.clock, d.state.lastGpsDelayMs, d.messages});
}

void RunDownload(QWidget* parent, DialogServices& d) {
  MainState& s = d.state;
  DownloadContext context{d.http(), d.messages, d.store, d.serverBase,
                          d.documents.empty() ? documentsFolder() : d.documents};
  // Shared with norvane-cli: both keep to the server's pace.
  if (!s.programFolder.empty()) context.fetchLogPath = s.programFolder + "/" + kFetchLogFileName;
  DownloadTarget target{s.catalogue, s.settings, s.app.iridiumFile};
  runDownloadDialog(parent, context, target, serverHomePage(d.serverBase));
}

void RunPasses(QWidget* parent, DialogServices& d) {
  MainState& s = d.state;
  auto plan = [&s](double minElevation) {
    PassSchedule& schedule = s.passWatch.schedule;
    if (minElevation == s.settings.passMinElevation) {
      schedule.update(s.catalogue, s.app.currentSatellite, s.app.observer, s.settings, s.app.currentTime);
      return schedule.passes();
    }
    // Another minimum elevation only for the list: the window's plan stays.
    Settings trial = s.settings;
    trial.passMinElevation = minElevation;
    PassSchedule other;
    other.update(s.catalogue, s.app.currentSatellite, s.app.observer, trial, s.app.currentTime);
    return other.passes();
  };
  runPassesDialog(parent, {s.app, s.settings, d.store, d.messages, plan});
  AppToSettings(s);  // the current satellite may have been picked in the list
}

}  // namespace

void RunWindowDialog(QWidget* parent, Command command, DialogServices& d) {
  MainState& s = d.state;
  switch (command) {
    case kCmdAbout: {
      AboutDialog about(parent);
      about.exec();
      break;
    }
    case kCmdSettings: RunSettings(parent, d); break;
    case kCmdLocation:
      // Opening reloads every stored setting, the current satellite's among them.
      runPositionDialog(parent, s.app, s.settings, d.store, d.messages, s.programFolder);
      break;
    case kCmdSatSelect:
      runSatSelectionDialog(parent, s.catalogue, s.app);
      AppToSettings(s);  // the current satellite was picked in the application state
      break;
    case kCmdTleInfo: showTleInfo(s.catalogue, s.app, d.messages); break;
    case kCmdPredict:
      runPredictionDialog(parent, {s.catalogue, s.app, s.settings, s.predictions, d.caches.look, d.caches.models,
                                   d.messages});
      AppToSettings(s);
      break;
    case kCmdGps: RunGpsSettings(parent, d); break;
    case kCmdTime: RunTime(parent, d); break;
    case kCmdGetLast: RunDownload(parent, d); break;
    case kCmdPasses: RunPasses(parent, d); break;
    case kCmdRadio: runRadioDialog(parent, s.settings, d.store); break;
    default: break;
  }
}

}  // namespace norvane
