#include "ui/dialogs/settings_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <charconv>
#include <utility>

#include "settings/settings_io.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {

double UplinkOrFallback(double mhz) { return mhz > 1e7 || mhz < 1.0 ? 138.0 : mhz; }
double DownlinkOrFallback(double mhz) { return mhz > 1e7 || mhz < 1.0 ? 130.0 : mhz; }
std::int32_t PredictionLimitOrFallback(long long limit) {
  return limit > 20 || limit < 0 ? 20 : static_cast<std::int32_t>(limit);
}

namespace {

// The edit reads an unsigned number: anything but digits counts as 0.
long long unsignedValue(const QString& text) {
  const QString trimmed = text.trimmed();
  if (trimmed.isEmpty()) return 0;
  for (const QChar c : trimmed) {
    if (!c.isDigit() || c.unicode() > 0x7f) return 0;
  }
  return trimmed.size() > 12 ? 1000000000000LL : trimmed.toLongLong();
}

// The shortest text that reads back as the same double: OK without an edit
// saves exactly what was there.
QString frequencyText(double mhz) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, mhz);
  return QString::fromLatin1(text, static_cast<qsizetype>(result.ptr - text));
}

}  // namespace

QCheckBox* SettingsDialog::box(const char* id, const char* text, bool checked) {
  auto* check = Named(new QCheckBox(QString::fromLatin1(text), this), id);
  check->setChecked(checked);
  return check;
}

SettingsDialog::SettingsDialog(Settings& settings, SettingsStore& store, std::uint8_t& modelComparison,
                               QWidget* parent)
    : QDialog(parent), settings_(settings), store_(store), modelComparison_(modelComparison) {
  setWindowTitle(QStringLiteral("Settings"));
  uplink_ = Named(new QLineEdit(frequencyText(settings.uplink), this), "edit1001");
  downlink_ = Named(new QLineEdit(frequencyText(settings.downlink), this), "edit1002");
  limit_ = Named(new QLineEdit(QString::number(static_cast<std::uint32_t>(settings.satPredictMag)), this),
                 "edit1004");
  stars_ = Named(new QComboBox(this), "combo1048");
  for (int i = 0; i <= 5; ++i) stars_->addItem(QString::number(i));
  stars_->setCurrentIndex(settings.starsMag >= 0 && settings.starsMag <= 5 ? settings.starsMag : -1);

  swap_ = box("check1057", "N-S swap", settings.snToNs == 1);
  flares_ = box("check1061", "Iridium flares", settings.flares == 1);
  refraction_ = box("check1049", "Atm. refraction", settings.flagRefraction == 1);
  visible_ = box("check1050", "Predict vis.", settings.satPredictVisible == 1);
  sgp8_ = box("check1062", "Turn on SGP8/SDP8", settings.s4s8 == 1);
  planets_ = box("check1064", "Planets", settings.flagPlanets == 1);
  colors_ = box("check1055", "Colors", settings.flagColors == 1);
  test_ = box("check1026", "test", modelComparison == 1);

  auto* radio = new QFormLayout;
  for (auto [text, edit] : {std::pair{"Uplink", uplink_}, std::pair{"Downlink", downlink_}}) {
    auto* row = new QHBoxLayout;
    row->addWidget(edit);
    row->addWidget(new QLabel(QStringLiteral("MHz"), this));
    radio->addRow(QString::fromLatin1(text), row);
  }
  auto* sky = new QGroupBox(QStringLiteral("Sky view"), this);
  auto* skyLayout = new QVBoxLayout(sky);
  auto* starsRow = new QFormLayout;
  starsRow->addRow(QStringLiteral("Stars mag until (0-5)"), stars_);
  skyLayout->addLayout(starsRow);
  for (QCheckBox* c : {swap_, flares_, refraction_, sgp8_, planets_, colors_, test_}) skyLayout->addWidget(c);
  auto* predict = new QGroupBox(QStringLiteral("Predict"), this);
  auto* predictLayout = new QFormLayout(predict);
  predictLayout->addRow(QStringLiteral("Minimum Mag. to predict (0 -20)"), limit_);
  predictLayout->addRow(visible_);

  auto* buttons = OkCancelButtons(this);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(radio);
  layout->addWidget(sky);
  layout->addWidget(predict);
  layout->addWidget(buttons);
}

void SettingsDialog::accept() {
  settings_.uplink = UplinkOrFallback(LeadingDouble(uplink_->text()));
  settings_.downlink = DownlinkOrFallback(LeadingDouble(downlink_->text()));
  settings_.satPredictMag = PredictionLimitOrFallback(unsignedValue(limit_->text()));
  settings_.snToNs = swap_->isChecked() ? 1 : 0;
  settings_.flares = flares_->isChecked() ? 1 : 0;
  settings_.flagRefraction = refraction_->isChecked() ? 1 : 0;
  settings_.satPredictVisible = visible_->isChecked() ? 1 : 0;
  settings_.s4s8 = sgp8_->isChecked() ? 1 : 0;
  settings_.flagPlanets = planets_->isChecked() ? 1 : 0;
  settings_.flagColors = colors_->isChecked() ? 1 : 0;
  modelComparison_ = test_->isChecked() ? 1 : 0;
  settings_.starsMag = static_cast<std::int16_t>(stars_->currentIndex());
  saveSettingsGroup(settings_, store_);
  QDialog::accept();
}

bool runSettingsDialog(QWidget* parent, Settings& settings, SettingsStore& store, std::uint8_t& modelComparison) {
  SettingsDialog dialog(settings, store, modelComparison, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
