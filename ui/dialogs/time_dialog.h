#pragma once
#include <QDialog>
#include <array>
#include <cstdint>
#include <functional>

#include "core/platform/message_sink.h"
#include "core/platform/system_clock.h"
#include "gps/gps_data.h"
#include "ui/views/app_state.h"

class QDateEdit;
class QLineEdit;
class QRadioButton;
class QTimeEdit;

namespace norvane {

// What the "Time" dialog works on besides the clock state in AppState.
struct TimeDialogContext {
  std::function<GpsData()> gpsData;  // the receiver's latest record
  SystemClock& clock;                // read, and set by "Set GPS time"
  std::uint32_t& lastGpsDelayMs;     // the delay "Set GPS time" measured last
  MessageSink& messages;
};

// "Time": time picker time1020 and date picker date1030 in local time, "JD"
// edit1000 with "Calc." button1058, clock modes radio1033 ("Real time") to
// radio1038 ("x60 sym time"), "UTC shift" edit1001, "Set GPS time" button1043
// with "Delay [s]" edit1002 and "Operation time [s]" edit1004. OK sets the
// mode and the simulation time.
class TimeDialog : public QDialog {
 public:
  TimeDialog(AppState& app, const TimeDialogContext& context, QWidget* parent = nullptr);
  void accept() override;

 private:
  double pickedJulianDate() const;
  void calculate();
  void setGpsTime();

  AppState& app_;
  TimeDialogContext context_;
  QTimeEdit* time_;
  QDateEdit* date_;
  QLineEdit* jd_;
  QLineEdit* delay_;
  QLineEdit* operation_;
  std::array<QRadioButton*, 6> modes_{};
};

// Shows "Time"; true when closed with OK.
bool runTimeDialog(QWidget* parent, AppState& app, const TimeDialogContext& context);

}  // namespace norvane
