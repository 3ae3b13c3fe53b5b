#include "ui/dialogs/passes_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/analysis/pass_calendar.h"
#include "core/astro/julian_date.h"
#include "settings/settings_io.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {
namespace {

constexpr double kListedDays = 1.0;

QString Clock(double jd) {
  int hour = 0, minute = 0, second = 0;
  TimeOfDay(jd, hour, minute, second);
  return QString::fromStdString(FormatText("%02d:%02d:%02d", hour % 24, minute, second));
}

// Day and clock time: "04-14 21:34:05".
QString DayAndClock(double jd) {
  int year = 0, month = 0, day = 0;
  CalendarOfJulianDate(jd, year, month, day);
  return QString::fromStdString(FormatText("%02d-%02d ", month, day)) + Clock(jd);
}

QStringList RowTexts(const PlannedPass& p, double utcOffset) {
  const QString aos = p.inProgressAtStart ? QStringLiteral("(up)") : DayAndClock(p.aos + utcOffset);
  const QString los = p.endsAfterSpan ? QStringLiteral("(later)") : Clock(p.los + utcOffset);
  const QString azimuths = QString::fromStdString(
      FormatText("%3.0f° / %3.0f° / %3.0f°", p.aosAzimuth, p.tcaAzimuth, p.losAzimuth));
  QString visible;
  QString magnitude;
  if (p.visible) {
    visible = Clock(p.visibleStart + utcOffset) + QStringLiteral("–") + Clock(p.visibleEnd + utcOffset);
    if (p.minMagnitude < 99.0) magnitude = QString::fromStdString(FormatText("%.1f", p.minMagnitude));
  }
  return {Latin1(p.name), aos, Clock(p.tca + utcOffset), los,
          QString::fromStdString(FormatText("%.0f°", p.tcaElevation)), azimuths, visible, magnitude};
}

}  // namespace

PassesDialog::PassesDialog(const PassesContext& context, QWidget* parent) : QDialog(parent), context_(context) {
  setWindowTitle(QStringLiteral("Passes"));
  setObjectName(QStringLiteral("passesDialog"));
  list_ = Named(new QTreeWidget(this), "passList");
  list_->setRootIsDecorated(false);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setHeaderLabels({QStringLiteral("Satellite"), QStringLiteral("AOS"), QStringLiteral("TCA"),
                          QStringLiteral("LOS"), QStringLiteral("Max el."), QStringLiteral("Az. AOS / TCA / LOS"),
                          QStringLiteral("Visible"), QStringLiteral("Mag.")});
  list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list_->header()->setStretchLastSection(false);
  connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { accept(); });

  minElevation_ = Named(new QDoubleSpinBox(this), "minElevation");
  minElevation_->setRange(0.0, 90.0);
  minElevation_->setDecimals(0);
  minElevation_->setSuffix(QStringLiteral("°"));
  minElevation_->setValue(context.settings.passMinElevation);
  connect(minElevation_, &QDoubleSpinBox::editingFinished, this, [this] { refresh(); });
  auto* update = Named(new QPushButton(QStringLiteral("Update"), this), "updateButton");
  connect(update, &QPushButton::clicked, this, [this] { refresh(); });

  alarmMinutes_ = Named(new QSpinBox(this), "alarmMinutes");
  alarmMinutes_->setRange(0, 120);
  alarmMinutes_->setSpecialValueText(QStringLiteral("off"));
  alarmMinutes_->setSuffix(QStringLiteral(" min before AOS"));
  alarmMinutes_->setValue(context.settings.passAlarmMinutes);
  alarmScope_ = Named(new QComboBox(this), "alarmScope");
  alarmScope_->addItems({QStringLiteral("selected satellites"), QStringLiteral("current satellite only")});
  alarmScope_->setCurrentIndex(context.settings.passAlarmScope == 1 ? 1 : 0);

  auto* exportButton = Named(new QPushButton(QStringLiteral("Export"), this), "exportButton");
  connect(exportButton, &QPushButton::clicked, this, [this] {
    std::optional<std::string> path;
    if (exportPathChooser) {
      path = exportPathChooser();
    } else {
      const QString chosen = QFileDialog::getSaveFileName(this, QStringLiteral("Export passes"),
                                                          QStringLiteral("passes.ics"),
                                                          QStringLiteral("iCalendar (*.ics)"));
      if (!chosen.isEmpty()) path = chosen.toStdString();
    }
    if (path) exportTo(*path);
  });

  auto* buttons = OkCancelButtons(this);

  auto* elevation = new QHBoxLayout;
  elevation->addWidget(minElevation_);
  elevation->addWidget(update);
  elevation->addStretch();
  auto* alarm = new QHBoxLayout;
  alarm->addWidget(alarmMinutes_);
  alarm->addWidget(alarmScope_);
  alarm->addStretch();
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("Minimum elevation"), elevation);
  form->addRow(QStringLiteral("Alarm"), alarm);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(exportButton);
  bottom->addStretch();
  bottom->addWidget(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(QStringLiteral("Passes of the selected satellites in the next 24 hours (local time)"),
                               this));
  layout->addWidget(list_);
  layout->addLayout(form);
  layout->addLayout(bottom);
  resize(860, 440);
  refresh();
}

void PassesDialog::refresh() {
  const double now = context_.app.currentTime;
  listed_.clear();
  list_->clear();
  for (const PlannedPass& p : context_.plan(minElevation_->value())) {
    if (p.los < now && !p.neverSets) continue;
    if (p.aos > now + kListedDays) continue;
    listed_.push_back(p);
    list_->addTopLevelItem(new QTreeWidgetItem(RowTexts(p, context_.app.utcOffset)));
    QTreeWidgetItem* item = list_->topLevelItem(list_->topLevelItemCount() - 1);
    for (int c = 1; c < list_->columnCount(); ++c) item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    if (p.slot == context_.app.currentSatellite) {
      QFont bold = item->font(0);
      bold.setBold(true);
      item->setFont(0, bold);
    }
  }
}

bool PassesDialog::exportTo(const std::string& path) {
  if (writePassCalendar(path, listed_, context_.app.currentTime)) return true;
  context_.messages.show(FormatText("Can't write %s!", path.c_str()), "Passes", MessageIcon::Stop);
  return false;
}

void PassesDialog::accept() {
  Settings& s = context_.settings;
  s.passMinElevation = minElevation_->value();
  s.passAlarmMinutes = alarmMinutes_->value();
  s.passAlarmScope = alarmScope_->currentIndex();
  savePassesGroup(s, context_.store);
  const QList<QTreeWidgetItem*> chosen = list_->selectedItems();
  const int row = chosen.isEmpty() ? -1 : list_->indexOfTopLevelItem(chosen.front());
  if (row >= 0 && row < static_cast<int>(listed_.size())) {
    context_.app.currentSatellite = listed_[static_cast<std::size_t>(row)].slot;
    context_.app.tapPicked = 0;
  }
  QDialog::accept();
}

bool runPassesDialog(QWidget* parent, const PassesContext& context) {
  PassesDialog dialog(context, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
