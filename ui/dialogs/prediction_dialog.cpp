#include "ui/dialogs/prediction_dialog.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimeEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cmath>

#include "core/astro/julian_date.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {
namespace {

enum Column { kSat = 0, kTime, kStatus, kMagnitude, kFlareAngle, kNrInFile };

// Each list row remembers which stored row it shows, so that it stays
// right however the list is sorted.
constexpr int kStoredRowRole = Qt::UserRole + 2;

// Drives the two bars from the search; they repaint while the search runs.
class BarProgress : public PassSearchProgress {
 public:
  BarProgress(QProgressBar& satellites, QProgressBar& time) : satellites_(satellites), time_(time) {}
  void begin(int satellites) override {
    satellites_.setRange(0, satellites);
    satellites_.setValue(0);
    time_.setRange(0, 10);
    time_.setValue(0);
  }
  void satelliteStep() override { step(satellites_); }
  void timeReset() override {
    time_.setValue(0);
    time_.repaint();
  }
  void timeStep() override { step(time_); }

 private:
  static void step(QProgressBar& bar) {
    if (bar.value() < bar.maximum()) bar.setValue(bar.value() + 1);
    bar.repaint();
  }
  QProgressBar& satellites_;
  QProgressBar& time_;
};

}  // namespace

PredictionDialog::PredictionDialog(const PredictionContext& context, QWidget* parent)
    : QDialog(parent), context_(context) {
  setWindowTitle(QStringLiteral("Prediction"));
  list_ = Named(new QTreeWidget(this), "list1024");
  list_->setRootIsDecorated(false);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->header()->setSortIndicator(-1, Qt::AscendingOrder);  // unsorted: newest first
  list_->setHeaderLabels({QStringLiteral("Sat"), QStringLiteral("Time"), QStringLiteral("Status"),
                          QStringLiteral("Magnitude"), QStringLiteral("Flare angle"), QStringLiteral("Nr in file")});
  list_->setMinimumHeight(200);
  satellites_ = Named(new QProgressBar(this), "progress1017");
  time_ = Named(new QProgressBar(this), "progress1018");
  auto* predictButton = Named(new QPushButton(QStringLiteral("Predict"), this), "button1027");
  hours_ = Named(new QLineEdit(QStringLiteral("2"), this), "edit1000");
  date_ = Named(new QDateEdit(this), "date1020");
  date_->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
  clock_ = Named(new QTimeEdit(this), "time1030");
  clock_->setDisplayFormat(QStringLiteral("HH:mm:ss"));

  // The pickers start at the program's clock, in local time.
  const double local = context.app.currentTime + context.app.utcOffset;
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(local, year, month, day);
  TimeOfDay(local, hour, minute, second);
  if (const QDate d(year, month, day); d.isValid()) date_->setDate(d);
  if (const QTime t(hour, minute, second); t.isValid()) clock_->setTime(t);

  fillList(false);
  // Wide enough for a name, a date and time and a magnitude before the first search.
  FitColumns(*list_, {QStringLiteral("COSMOS 482 DESCENT CRAFT  "), QStringLiteral("2017-12-31 23:59:59"),
                      QStringLiteral("Eclipsed"), QStringLiteral("-10.0"), QStringLiteral("10.00 deg"),
                      QStringLiteral("180")});
  connect(predictButton, &QPushButton::clicked, this, [this] { predict(); });

  auto* buttons = OkCancelButtons(this);
  auto* start = new QHBoxLayout;
  start->addWidget(date_);
  start->addWidget(clock_);
  auto* span = new QHBoxLayout;
  span->addWidget(hours_);
  span->addWidget(new QLabel(QStringLiteral("h to predict"), this));
  span->addWidget(predictButton);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(list_);
  layout->addWidget(satellites_);
  layout->addWidget(time_);
  layout->addLayout(start);
  layout->addLayout(span);
  layout->addWidget(buttons);
}

void PredictionDialog::fillList(bool freshSearch) {
  list_->setSortingEnabled(false);
  list_->clear();
  const std::vector<PredictionRow>& rows = context_.store.rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PredictionRow& row = rows[i];
    const PredictionRowTexts t = FormatPredictionRow(row, context_.catalogue, context_.app.utcOffset, freshSearch);
    auto* item = new SortableRow(QStringList{Latin1(t.sat), Latin1(t.time), Latin1(t.status), Latin1(t.magnitude),
                                             Latin1(t.flareAngle), Latin1(t.nrInFile)});
    item->setSortKey(kTime, row.time);
    // Rows without a figure ("N/A") sort after every number.
    const bool numbered = row.state == 4 || row.state == 5;
    item->setSortKey(kMagnitude, numbered ? row.magnitude : HUGE_VAL);
    item->setSortKey(kFlareAngle, row.state == 5 ? row.flareAngle : HUGE_VAL);
    item->setSortKey(kNrInFile, row.satellite);
    item->setData(kSat, kStoredRowRole, static_cast<int>(i));
    list_->insertTopLevelItem(0, item);  // the latest found row stands first
  }
  // Sorted again only after a click on a heading has chosen a column.
  list_->setSortingEnabled(true);
}

void PredictionDialog::predict() {
  const QDate d = date_->date();
  const QTime t = clock_->time();
  PassSearchOptions options;
  options.start = PredictionStart(d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second(),
                                  context_.app.utcOffset);
  options.hours = PredictionHours(LeadingInt(hours_->text()), t.hour());
  options.flareMode = context_.settings.flares == 1;
  options.visibleOnly = context_.settings.satPredictVisible == 1;
  options.minMagnitude = context_.settings.satPredictMag;
  options.mode = context_.settings.s4s8;
  BarProgress progress(*satellites_, *time_);
  SearchPasses(context_.catalogue, context_.app.observer, context_.cache, context_.models, options, context_.store,
               &progress);
  fillList(true);
  FitColumns(*list_);
  context_.messages.show(SearchResultText(context_.store), kSearchResultTitle, MessageIcon::Information);
}

void PredictionDialog::accept() {
  const int rows = list_->topLevelItemCount();
  for (int r = 0; r < rows; ++r) {
    const QTreeWidgetItem* item = list_->topLevelItem(r);
    if (!item->isSelected()) continue;
    const int slot = LeadingInt(item->text(kNrInFile));
    const int stored = item->data(kSat, kStoredRowRole).toInt();
    if (slot < 0 || slot >= kCatalogueSlots || stored < 0) continue;
    if (stored >= static_cast<int>(context_.store.rows.size())) continue;
    if (slot < kSelectionFlags) context_.catalogue.selected[static_cast<std::size_t>(slot)] = 1;
    AppState& app = context_.app;
    app.currentSatellite = slot;
    app.pausedTime = context_.store.rows[static_cast<std::size_t>(stored)].time;
    app.currentTime = app.pausedTime;
    app.simulationMode = SimulationMode::Pause;
  }
  QDialog::accept();
}

bool runPredictionDialog(QWidget* parent, const PredictionContext& context) {
  PredictionDialog dialog(context, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
