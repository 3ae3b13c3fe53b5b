#include "ui/dialogs/time_dialog.h"

#include <QButtonGroup>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "core/astro/julian_date.h"
#include "core/astro/numeric.h"
#include "gps/clock_setting.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {
namespace {

QLineEdit* readOnly(QWidget* parent, const char* id) {
  auto* edit = Named(new QLineEdit(parent), id);
  edit->setReadOnly(true);
  return edit;
}

}  // namespace

TimeDialog::TimeDialog(AppState& app, const TimeDialogContext& context, QWidget* parent)
    : QDialog(parent), app_(app), context_(context) {
  setWindowTitle(QStringLiteral("Time"));
  time_ = Named(new QTimeEdit(this), "time1020");
  time_->setDisplayFormat(QStringLiteral("HH:mm:ss"));
  date_ = Named(new QDateEdit(this), "date1030");
  date_->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  jd_ = readOnly(this, "edit1000");
  auto* utcShift = readOnly(this, "edit1001");
  delay_ = readOnly(this, "edit1002");
  operation_ = readOnly(this, "edit1004");
  auto* calc = Named(new QPushButton(QStringLiteral("Calc."), this), "button1058");
  auto* gpsTime = Named(new QPushButton(QStringLiteral("Set GPS time"), this), "button1043");

  static constexpr const char* kModeTexts[6] = {"Real time",    "Stop sym time", "x1 sym time",
                                                "x10 sym time", "x30 sym time",  "x60 sym time"};
  static constexpr const char* kModeIds[6] = {"radio1033", "radio1034", "radio1035",
                                              "radio1036", "radio1037", "radio1038"};
  auto* group = new QButtonGroup(this);
  for (int i = 0; i < 6; ++i) {
    modes_[static_cast<std::size_t>(i)] = Named(new QRadioButton(QString::fromLatin1(kModeTexts[i]), this), kModeIds[i]);
    group->addButton(modes_[static_cast<std::size_t>(i)], i);
  }
  const int mode = static_cast<int>(app.simulationMode);
  if (mode >= 0 && mode < 6) modes_[static_cast<std::size_t>(mode)]->setChecked(true);

  utcShift->setText(QString::number(Round(app.utcOffset * 24.0)));
  const double local = app.currentTime + app.utcOffset;
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(local, year, month, day);
  TimeOfDay(local, hour, minute, second);
  // A picker keeps what it shows when handed a date or time that does not exist (hour 24).
  if (const QDate d(year, month, day); d.isValid()) date_->setDate(d);
  if (const QTime t(hour, minute, second); t.isValid()) time_->setTime(t);
  jd_->setText(Latin1(FormatText("JD: %6.6fdays", app.currentTime)));
  // Wide enough for the longest text "Calc." writes.
  jd_->setMinimumWidth(jd_->fontMetrics().horizontalAdvance(QStringLiteral("JD: 2457858.34513900days  ")));

  connect(calc, &QPushButton::clicked, this, [this] { calculate(); });
  connect(gpsTime, &QPushButton::clicked, this, [this] { setGpsTime(); });
  auto* buttons = OkCancelButtons(this);

  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("Date"), date_);
  form->addRow(QStringLiteral("Time"), time_);
  form->addRow(jd_, calc);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  for (QRadioButton* r : modes_) layout->addWidget(r);
  auto* gps = new QFormLayout;
  gps->addRow(QStringLiteral("UTC shift"), utcShift);
  gps->addRow(gpsTime);
  gps->addRow(QStringLiteral("Delay [s]"), delay_);
  gps->addRow(QStringLiteral("Operation time [s]"), operation_);
  layout->addLayout(gps);
  layout->addWidget(buttons);
}

double TimeDialog::pickedJulianDate() const {
  const QDate d = date_->date();
  const QTime t = time_->time();
  return JulianDateOfDate(d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()) - app_.utcOffset;
}

void TimeDialog::calculate() { jd_->setText(Latin1(FormatText("JD: %6.8fdays", pickedJulianDate()))); }

void TimeDialog::setGpsTime() {
  const GpsClockResult result = SetClockFromGps(context_.gpsData(), app_.gpsTracking, app_.utcOffset,
                                                context_.clock, context_.lastGpsDelayMs, context_.messages);
  if (result.outcome != GpsClockOutcome::Set) return;
  delay_->setText(QString::number(result.correctionSeconds));
  operation_->setText(QString::number(result.delayMs / 1000u));
}

void TimeDialog::accept() {
  for (int i = 0; i < 6; ++i) {
    if (modes_[static_cast<std::size_t>(i)]->isChecked()) app_.simulationMode = static_cast<SimulationMode>(i);
  }
  const double jd = pickedJulianDate();
  app_.currentTime = jd;
  app_.pausedTime = jd;
  QDialog::accept();
}

bool runTimeDialog(QWidget* parent, AppState& app, const TimeDialogContext& context) {
  TimeDialog dialog(app, context, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
