#include "ui/dialogs/gps_settings_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "gps/device_list.h"
#include "gps/gps_receiver.h"
#include "gps/gpsd_connection.h"
#include "settings/settings_io.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {

GpsSettingsDialog::GpsSettingsDialog(const GpsDialogContext& context, QWidget* parent)
    : QDialog(parent), context_(context), devices_(context.settings.gpsDevices) {
  setWindowTitle(QStringLiteral("GPS settings"));
  const GpsSettings& gps = context.gps;
  track_ = Named(new QCheckBox(QStringLiteral("Track GPS"), this), "check1049");
  track_->setChecked(gps.tracking == 1);
  compass_ = Named(new QCheckBox(QStringLiteral("Auto Compass"), this), "check1059");
  compass_->setChecked(gps.autoCompass != 0);
  altReading_ = Named(new QCheckBox(QStringLiteral("Another reading from GPS"), this), "check1063");
  altReading_->setChecked(gps.altReading != 0);
  acceptGn_ = Named(new QCheckBox(QStringLiteral("Accept GNSS talker (GN)"), this), "check1065");
  acceptGn_->setChecked(context.settings.gpsAcceptGN != 0);

  port_ = Named(new QComboBox(this), "combo1054");
  for (const char* name : kGpsPortTable) port_->addItem(QString::fromLatin1(name));
  port_->setCurrentIndex(gps.portIndex >= 0 && gps.portIndex < port_->count() ? gps.portIndex : -1);
  resolved_ = Named(new QLabel(this), "static1067");
  resolved_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  device_ = Named(new QComboBox(this), "combo1066");
  device_->setEditable(true);
  device_->setInsertPolicy(QComboBox::NoInsert);
  device_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  device_->setMinimumContentsLength(16);
  for (const std::string& path : ListGpsDevices()) device_->addItem(QString::fromStdString(path));
  device_->addItem(QString::fromLatin1(kDefaultGpsdAddress));
  device_->setToolTip(QStringLiteral("A device path, or gpsd://HOST:PORT for a running gpsd"));
  showDevice();
  connect(port_, &QComboBox::currentIndexChanged, this, [this] { showDevice(); });
  connect(device_, &QComboBox::editTextChanged, this, [this](const QString& text) { deviceEdited(text); });
  baud_ = Named(new QComboBox(this), "combo1056");
  for (int i = 0; i < kGpsBaudChoices; ++i) baud_->addItem(QString::fromLatin1(kGpsBaudTable[i].text));
  baud_->setCurrentIndex(gps.baudIndex >= 0 && gps.baudIndex < kGpsBaudChoices ? gps.baudIndex : -1);

  auto* test = Named(new QPushButton(QStringLiteral("Test GPS"), this), "button1043");
  auto* note = new QLabel(QStringLiteral("Use this reading method from COM port only when it does't work."), this);
  note->setWordWrap(true);
  connect(track_, &QCheckBox::clicked, this, [this](bool checked) { trackingClicked(checked); });
  connect(test, &QPushButton::clicked, this, [this] { testPort(); });

  auto* buttons = OkCancelButtons(this);
  auto* form = new QFormLayout;
  auto* portRow = new QHBoxLayout;
  portRow->addWidget(port_);
  portRow->addWidget(resolved_, 1);
  form->addRow(QStringLiteral("Port"), portRow);
  form->addRow(QStringLiteral("Device"), device_);
  form->addRow(QStringLiteral("Baud"), baud_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(track_);
  layout->addWidget(compass_);
  layout->addLayout(form);
  layout->addWidget(test);
  layout->addWidget(altReading_);
  layout->addWidget(note);
  layout->addWidget(acceptGn_);
  layout->addWidget(buttons);
}

// The chosen port's device in the edit and, beside the port, where it leads:
// the device a link such as /dev/serial/by-id/... names, or the gpsd address.
void GpsSettingsDialog::showDevice() {
  const int port = port_->currentIndex();
  const QString device = QString::fromStdString(GpsDeviceOf(devices_, port));
  device_->setEnabled(port >= 1);
  if (device_->currentText() != device) {
    const QSignalBlocker quiet(device_);
    device_->setEditText(device);
  }
  QString shown = device;
  if (port >= 1 && !device.isEmpty() && !device.startsWith(QString::fromLatin1(kGpsdScheme))) {
    const QFileInfo file(device);
    if (!file.exists()) shown = device + QStringLiteral(" (not present)");
    else if (!file.canonicalFilePath().isEmpty()) shown = file.canonicalFilePath();
  }
  // A long missing path is cut in the middle so that the dialog keeps to a
  // small screen; the tool tip holds all of it.
  const QString full = port >= 1 ? QStringLiteral("→ ") + shown : QString();
  resolved_->setText(full.size() > 40 ? full.left(18) + QStringLiteral("…") + full.right(21) : full);
  resolved_->setToolTip(full);
}

void GpsSettingsDialog::deviceEdited(const QString& text) {
  const int port = port_->currentIndex();
  if (port < 1 || port >= static_cast<int>(devices_.devices.size())) return;
  devices_.devices[static_cast<std::size_t>(port)] = text.trimmed().toStdString();
  showDevice();
}

void GpsSettingsDialog::trackingClicked(bool checked) {
  context_.gps.tracking = checked ? 1 : 0;
  context_.app.gpsTracking = context_.gps.tracking;
  context_.thread.configure(context_.gps, context_.settings.gpsDevices);
}

void GpsSettingsDialog::takeChoices() {
  context_.gps.portIndex = port_->currentIndex();
  context_.gps.baudIndex = baud_->currentIndex();
  context_.settings.gpsPort = context_.gps.portIndex;
  context_.settings.gpsSpeed = context_.gps.baudIndex;
  context_.settings.gpsDevices = devices_;
}

void GpsSettingsDialog::testPort() {
  takeChoices();
  TestGpsPort(context_.thread, context_.gps, context_.settings.gpsDevices, context_.messages);
}

void GpsSettingsDialog::accept() {
  GpsSettings& gps = context_.gps;
  gps.tracking = track_->isChecked() ? 1 : 0;
  gps.autoCompass = compass_->isChecked() ? 1 : 0;
  gps.altReading = altReading_->isChecked() ? 1 : 0;
  gps.acceptGn = acceptGn_->isChecked() ? 1 : 0;
  takeChoices();
  context_.app.gpsTracking = gps.tracking;
  context_.settings.gpsCompass = gps.autoCompass;
  context_.settings.gpsAcceptGN = gps.acceptGn;
  saveGpsGroup(context_.settings, context_.store);
  context_.thread.configure(gps, context_.settings.gpsDevices);
  QDialog::accept();
}

bool runGpsSettingsDialog(QWidget* parent, const GpsDialogContext& context) {
  GpsSettingsDialog dialog(context, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace norvane
