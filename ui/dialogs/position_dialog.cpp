#include "ui/dialogs/position_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <cmath>

#include "core/astro/observer.h"
#include "settings/settings_io.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

// A number that fills the edit (blanks aside) and lies in [low, high].
bool readNumber(const QLineEdit* edit, double low, double high, double& value) {
  bool ok = false;
  const double v = edit->text().trimmed().toDouble(&ok);
  if (!ok || !std::isfinite(v) || v < low || v > high) return false;
  value = v;
  return true;
}

}  // namespace

std::string ObserverInertialText(const Geodetic& observer, double jd, int axis) {
  Geodetic place = observer;
  StateVector pos, vel;
  ObserverPosVel(jd, place, pos, vel);
  static constexpr const char* kAxes[3] = {"X %.3f km", "Y %.3f km", "Z %.3f km"};
  const double values[3] = {pos.x, pos.y, pos.z};
  return axis >= 0 && axis < 3 ? FormatText(kAxes[axis], values[axis]) : std::string();
}

PositionDialog::PositionDialog(AppState& app, Settings& settings, SettingsStore& store, std::vector<City> cities,
                               MessageSink& messages, QWidget* parent)
    : QDialog(parent), app_(app), settings_(settings), store_(store), cities_(std::move(cities)) {
  setWindowTitle(QStringLiteral("Position"));
  // The settings hold the observer; reading them all back picks the stored place.
  settings.lat = app.observer.lat;
  settings.lon = app.observer.lon;
  settings.alt = app.observer.alt;
  const std::int32_t city = loadSettings(settings, store);
  if (city == -1) messages.show("Can't read registry entries!", "", MessageIcon::Stop);
  app.observer.lat = settings.lat;
  app.observer.lon = settings.lon;
  app.observer.alt = settings.alt;

  places_ = Named(new QComboBox(this), "combo1040");
  for (const City& c : cities_) places_->addItem(QString::fromUtf8(c.name.data(), static_cast<qsizetype>(c.name.size())));
  places_->setCurrentIndex(city >= 0 && city < places_->count() ? city : -1);
  lat_ = Named(new QLineEdit(QString::number(app.observer.lat * kDegreesPerRadian, 'f', 4), this), "edit1041");
  lon_ = Named(new QLineEdit(QString::number(app.observer.lon * kDegreesPerRadian, 'f', 4), this), "edit1042");
  alt_ = Named(new QLineEdit(QString::number(app.observer.alt * 1000.0, 'f', 0), this), "edit1043");
  static constexpr const char* kIds[3] = {"edit1044", "edit1045", "edit1046"};
  for (int i = 0; i < 3; ++i) {
    inertial_[i] = Named(new QLineEdit(this), kIds[i]);
    inertial_[i]->setReadOnly(true);
  }
  showInertial();
  connect(places_, &QComboBox::activated, this, [this](int index) { placeChosen(index); });
  for (QLineEdit* edit : {lat_, lon_, alt_}) connect(edit, &QLineEdit::textChanged, this, [this] { showInertial(); });

  auto* buttons = OkCancelButtons(this);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("City"), places_);
  form->addRow(QStringLiteral("Lat. [deg N]"), lat_);
  form->addRow(QStringLiteral("Lon. [deg E]"), lon_);
  form->addRow(QStringLiteral("Alt. [m]"), alt_);
  for (QLineEdit* edit : inertial_) form->addRow(edit);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
}

void PositionDialog::placeChosen(int index) {
  if (index < 0 || index >= static_cast<int>(cities_.size())) return;
  const City& c = cities_[static_cast<std::size_t>(index)];
  lat_->setText(QString::number(c.latitude, 'f', 4));
  lon_->setText(QString::number(c.longitude, 'f', 4));
  alt_->setText(QString::number(c.altitude, 'f', 0));
}

bool PositionDialog::readObserver(Geodetic& observer) const {
  double lat = 0, lon = 0, alt = 0;
  if (!readNumber(lat_, -90.0, 90.0, lat) || !readNumber(lon_, -180.0, 180.0, lon) ||
      !readNumber(alt_, -500.0, 9000.0, alt)) {
    return false;
  }
  observer.lat = lat / kDegreesPerRadian;
  observer.lon = lon / kDegreesPerRadian;
  observer.alt = alt / 1000.0;
  return true;
}

void PositionDialog::showInertial() {
  Geodetic observer = app_.observer;
  const bool valid = readObserver(observer);
  for (int i = 0; i < 3; ++i) {
    inertial_[i]->setText(valid ? Latin1(ObserverInertialText(observer, app_.currentTime, i)) : QString());
  }
}

void PositionDialog::accept() {
  Geodetic observer = app_.observer;
  if (!readObserver(observer)) return;  // stays open until the numbers make sense
  app_.observer.lat = observer.lat;
  app_.observer.lon = observer.lon;
  app_.observer.alt = observer.alt;
  settings_.lat = observer.lat;
  settings_.lon = observer.lon;
  settings_.alt = observer.alt;
  saveLocationGroup(settings_, places_->currentIndex(), store_);
  QDialog::accept();
}

bool runPositionDialog(QWidget* parent, AppState& app, Settings& settings, SettingsStore& store,
                       MessageSink& messages, const std::string& programFolder) {
  PositionDialog dialog(app, settings, store, ReadCitiesFile(programFolder + "/" + kCitiesFileName), messages,
                        parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
