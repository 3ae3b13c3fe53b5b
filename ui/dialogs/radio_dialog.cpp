#include "ui/dialogs/radio_dialog.h"

#include <QCheckBox>
#include <QComboBox>
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

// The enable box, host, port and period of one daemon, named "<prefix>Enable",
// "<prefix>Host" and so on, as the first rows of form; the tolerance is the caller's.
RadioDialog::DaemonFields DaemonRows(QDialog* dialog, QFormLayout* form, const char* enableText,
                                     const std::string& prefix, bool enabled, const std::string& host, int port,
                                     int periodMs) {
  RadioDialog::DaemonFields f{};
  f.enable = Named(new QCheckBox(QString::fromLatin1(enableText), dialog), (prefix + "Enable").c_str());
  f.enable->setChecked(enabled);
  f.host = Named(new QLineEdit(QString::fromStdString(host), dialog), (prefix + "Host").c_str());
  f.host->setMaxLength(static_cast<int>(kRadioHostBytes) - 1);
  f.port = IntBox(dialog, (prefix + "Port").c_str(), 1, 65535, port, "");
  f.period = IntBox(dialog, (prefix + "Period").c_str(), 100, 60000, periodMs, " ms");
  f.period->setSingleStep(100);
  form->addRow(f.enable);
  form->addRow(QStringLiteral("Host"), f.host);
  form->addRow(QStringLiteral("Port"), f.port);
  form->addRow(QStringLiteral("Update every"), f.period);
  return f;
}

}  // namespace

RadioDialog::RadioDialog(Settings& settings, SettingsStore& store, QWidget* parent)
    : QDialog(parent), settings_(settings), store_(store) {
  setWindowTitle(QStringLiteral("Radio"));
  const RadioSettings& r = settings.radio;

  auto* rig = new QGroupBox(QStringLiteral("Radio (rigctld)"), this);
  auto* rigForm = new QFormLayout(rig);
  rig_ = DaemonRows(this, rigForm, "Tune the radio", "radioRig", r.rigEnable == 1, r.rigHost, r.rigPort, r.rigPeriodMs);
  rig_.tolerance = RealBox(this, "radioRigTolerance", 0, 100000, 0, r.rigToleranceHz, " Hz");
  rigForm->addRow(QStringLiteral("Tolerance"), rig_.tolerance);

  auto* rot = new QGroupBox(QStringLiteral("Rotator (rotctld)"), this);
  auto* rotForm = new QFormLayout(rot);
  rot_ = DaemonRows(this, rotForm, "Turn the rotator", "radioRot", r.rotEnable == 1, r.rotHost, r.rotPort,
                    r.rotPeriodMs);
  rot_.tolerance = RealBox(this, "radioRotTolerance", 0, 90, 1, r.rotToleranceDeg, "°");
  azRange_ = Choice(this, "radioAzRange", {"0° to 360°", "-180° to 180°", "0° to 450° (overlap)"}, r.rotAzRange);
  elRange_ = Choice(this, "radioElRange", {"0° to 90°", "0° to 180°"}, r.rotElRange);
  flip_ = Named(new QCheckBox(QStringLiteral("Flip passes (0-180° only)"), this), "radioFlip");
  flip_->setChecked(r.rotFlip == 1);
  minElevation_ = RealBox(this, "radioMinEl", 0, 90, 1, r.rotMinElevation, "°");
  parkAz_ = RealBox(this, "radioParkAz", -180, 450, 1, r.rotParkAz, "°");
  parkEl_ = RealBox(this, "radioParkEl", 0, 180, 1, r.rotParkEl, "°");
  rotForm->addRow(QStringLiteral("Tolerance"), rot_.tolerance);
  rotForm->addRow(QStringLiteral("Azimuth"), azRange_);
  rotForm->addRow(QStringLiteral("Elevation"), elRange_);
  rotForm->addRow(flip_);
  rotForm->addRow(QStringLiteral("Min. elevation"), minElevation_);
  rotForm->addRow(QStringLiteral("Park azimuth"), parkAz_);
  rotForm->addRow(QStringLiteral("Park elevation"), parkEl_);

  auto* note = new QLabel(QStringLiteral("Frequencies per satellite: Frequencies.txt in the program folder"), this);
  note->setWordWrap(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(rig);
  layout->addWidget(rot);
  layout->addWidget(note);
  layout->addWidget(OkCancelButtons(this));
}

void RadioDialog::accept() {
  RadioSettings& r = settings_.radio;
  const auto host = [](QLineEdit* edit) {
    const std::string text = edit->text().trimmed().toStdString();
    return text.empty() ? std::string("127.0.0.1") : text.substr(0, kRadioHostBytes - 1);
  };
  r.rigEnable = rig_.enable->isChecked() ? 1 : 0;
  r.rigHost = host(rig_.host);
  r.rigPort = rig_.port->value();
  r.rigPeriodMs = rig_.period->value();
  r.rigToleranceHz = rig_.tolerance->value();
  r.rotEnable = rot_.enable->isChecked() ? 1 : 0;
  r.rotHost = host(rot_.host);
  r.rotPort = rot_.port->value();
  r.rotPeriodMs = rot_.period->value();
  r.rotToleranceDeg = rot_.tolerance->value();
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
