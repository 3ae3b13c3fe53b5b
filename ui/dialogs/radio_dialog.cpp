#include "ui/dialogs/radio_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include "settings/radio_setting_values.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {

namespace {

QSpinBox* IntBox(QWidget* parent, const char* id, int low, int high, int value, const char* suffix) {
  auto* box = Named(new QSpinBox(parent), id);
  box->setRange(low, high);
  box->setValue(value);
  box->setSuffix(QString::fromLatin1(suffix));
  return box;
}

QDoubleSpinBox* RealBox(QWidget* parent, const char* id, double low, double high, int decimals, double value,
                        const char* suffix) {
  auto* box = Named(new QDoubleSpinBox(parent), id);
  box->setRange(low, high);
  box->setDecimals(decimals);
  box->setValue(value);
  box->setSuffix(QString::fromUtf8(suffix));
  return box;
}

QComboBox* Choice(QWidget* parent, const char* id, const QStringList& items, int index) {
  auto* box = Named(new QComboBox(parent), id);
  box->addItems(items);
  box->setCurrentIndex(index >= 0 && index < items.size() ? index : 0);
  return box;
}

}  // namespace

RadioDialog::RadioDialog(Settings& settings, SettingsStore& store, QWidget* parent)
    : QDialog(parent), settings_(settings), store_(store) {
  setWindowTitle(QStringLiteral("Radio"));
  const RadioSettings& r = settings.radio;

  rigEnable_ = Named(new QCheckBox(QStringLiteral("Tune the radio"), this), "radioRigEnable");
  rigEnable_->setChecked(r.rigEnable == 1);
  rigHost_ = Named(new QLineEdit(QString::fromStdString(r.rigHost), this), "radioRigHost");
  rigHost_->setMaxLength(static_cast<int>(kRadioHostBytes) - 1);
  rigPort_ = IntBox(this, "radioRigPort", 1, 65535, r.rigPort, "");
  rigPeriod_ = IntBox(this, "radioRigPeriod", 100, 60000, r.rigPeriodMs, " ms");
  rigPeriod_->setSingleStep(100);
  rigTolerance_ = RealBox(this, "radioRigTolerance", 0, 100000, 0, r.rigToleranceHz, " Hz");

  rotEnable_ = Named(new QCheckBox(QStringLiteral("Turn the rotator"), this), "radioRotEnable");
  rotEnable_->setChecked(r.rotEnable == 1);
  rotHost_ = Named(new QLineEdit(QString::fromStdString(r.rotHost), this), "radioRotHost");
  rotHost_->setMaxLength(static_cast<int>(kRadioHostBytes) - 1);
  rotPort_ = IntBox(this, "radioRotPort", 1, 65535, r.rotPort, "");
  rotPeriod_ = IntBox(this, "radioRotPeriod", 100, 60000, r.rotPeriodMs, " ms");
  rotPeriod_->setSingleStep(100);
  rotTolerance_ = RealBox(this, "radioRotTolerance", 0, 90, 1, r.rotToleranceDeg, "°");
  azRange_ = Choice(this, "radioAzRange", {"0° to 360°", "-180° to 180°", "0° to 450° (overlap)"}, r.rotAzRange);
  elRange_ = Choice(this, "radioElRange", {"0° to 90°", "0° to 180°"}, r.rotElRange);
  flip_ = Named(new QCheckBox(QStringLiteral("Flip passes (0-180° only)"), this), "radioFlip");
  flip_->setChecked(r.rotFlip == 1);
  minElevation_ = RealBox(this, "radioMinEl", 0, 90, 1, r.rotMinElevation, "°");
  parkAz_ = RealBox(this, "radioParkAz", -180, 450, 1, r.rotParkAz, "°");
  parkEl_ = RealBox(this, "radioParkEl", 0, 180, 1, r.rotParkEl, "°");

  auto* rig = new QGroupBox(QStringLiteral("Radio (rigctld)"), this);
  auto* rigForm = new QFormLayout(rig);
  rigForm->addRow(rigEnable_);
  rigForm->addRow(QStringLiteral("Host"), rigHost_);
  rigForm->addRow(QStringLiteral("Port"), rigPort_);
  rigForm->addRow(QStringLiteral("Update every"), rigPeriod_);
  rigForm->addRow(QStringLiteral("Tolerance"), rigTolerance_);

  auto* rot = new QGroupBox(QStringLiteral("Rotator (rotctld)"), this);
  auto* rotForm = new QFormLayout(rot);
  rotForm->addRow(rotEnable_);
  rotForm->addRow(QStringLiteral("Host"), rotHost_);
  rotForm->addRow(QStringLiteral("Port"), rotPort_);
  rotForm->addRow(QStringLiteral("Update every"), rotPeriod_);
  rotForm->addRow(QStringLiteral("Tolerance"), rotTolerance_);
  rotForm->addRow(QStringLiteral("Azimuth"), azRange_);
  rotForm->addRow(QStringLiteral("Elevation"), elRange_);
  rotForm->addRow(flip_);
  rotForm->addRow(QStringLiteral("Min. elevation"), minElevation_);
  rotForm->addRow(QStringLiteral("Park azimuth"), parkAz_);
  rotForm->addRow(QStringLiteral("Park elevation"), parkEl_);

  auto* note = new QLabel(QStringLiteral("Frequencies per satellite: Frequencies.txt in the program folder"), this);
  note->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(rig);
  layout->addWidget(rot);
  layout->addWidget(note);
  layout->addWidget(buttons);
}

void RadioDialog::accept() {
  RadioSettings& r = settings_.radio;
  const auto host = [](QLineEdit* edit) {
    const std::string text = edit->text().trimmed().toStdString();
    return text.empty() ? std::string("127.0.0.1") : text.substr(0, kRadioHostBytes - 1);
  };
  r.rigEnable = rigEnable_->isChecked() ? 1 : 0;
  r.rigHost = host(rigHost_);
  r.rigPort = rigPort_->value();
  r.rigPeriodMs = rigPeriod_->value();
  r.rigToleranceHz = rigTolerance_->value();
  r.rotEnable = rotEnable_->isChecked() ? 1 : 0;
  r.rotHost = host(rotHost_);
  r.rotPort = rotPort_->value();
  r.rotPeriodMs = rotPeriod_->value();
  r.rotToleranceDeg = rotTolerance_->value();
  r.rotAzRange = azRange_->currentIndex();
  r.rotElRange = elRange_->currentIndex();
  r.rotFlip = flip_->isChecked() ? 1 : 0;
  r.rotMinElevation = minElevation_->value();
  r.rotParkAz = parkAz_->value();
  r.rotParkEl = parkEl_->value();
  saveRadioGroup(settings_, store_);
  QDialog::accept();
}

bool runRadioDialog(QWidget* parent, Settings& settings, SettingsStore& store) {
  RadioDialog dialog(settings, store, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
