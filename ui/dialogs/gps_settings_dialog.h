#pragma once
#include <QDialog>

#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "gps/gps_settings.h"
#include "gps/gps_thread.h"
#include "gps/port_tables.h"
#include "settings/settings.h"
#include "ui/views/app_state.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace norvane {

// What the "GPS settings" dialog works on.
struct GpsDialogContext {
  GpsSettings& gps;        // the reader's settings
  Settings& settings;      // "GPSPort", "GPSSpeed", "GPSCompass", "GPSAcceptGN", "GPSDevices" (the port map)
  SettingsStore& store;    // the GPS group is saved here on OK
  AppState& app;           // gpsTracking follows "Track GPS" at once
  GpsThread& thread;       // reconfigured on every change, asked to let go of its port by "Test GPS"
  MessageSink& messages;
};

// "GPS settings": "Track GPS" check1049, "Auto Compass" check1059, "Another
// reading from GPS" check1063, "Accept GNSS talker (GN)" check1065, port
// combo1054 with the path it resolves to beside it (static1067), the
// chosen port's device, editable with the devices present offered
// (combo1066), baud combo1056 (the first ten speeds), "Test GPS" button1043.
class GpsSettingsDialog : public QDialog {
 public:
  GpsSettingsDialog(const GpsDialogContext& context, QWidget* parent = nullptr);
  void accept() override;

 private:
  void takeChoices();
  void trackingClicked(bool checked);
  void testPort();
  void showDevice();
  void deviceEdited(const QString& text);

  GpsDialogContext context_;
  QCheckBox* track_;
  QCheckBox* compass_;
  QCheckBox* altReading_;
  QCheckBox* acceptGn_;
  QComboBox* port_;
  QComboBox* baud_;
  QComboBox* device_;
  QLabel* resolved_;
  GpsPortMap devices_;  // the map as edited; stored by "Test GPS" and OK
};

// Shows "GPS settings"; true when closed with OK.
bool runGpsSettingsDialog(QWidget* parent, const GpsDialogContext& context);

}  // namespace norvane
