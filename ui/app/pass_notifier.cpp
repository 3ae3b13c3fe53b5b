#include "ui/app/pass_notifier.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMessageBox>
#include <QStringList>
#include <QVariantMap>

namespace norvane {
namespace {

const char* const kService = "org.freedesktop.Notifications";
const char* const kPath = "/org/freedesktop/Notifications";
const char* const kInterface = "org.freedesktop.Notifications";
constexpr int kExpireMs = 15000;

QString Text(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

PassNotifier::PassNotifier(QWidget* window) : QObject(window), window_(window) {}

void PassNotifier::notify(const std::string& summaryText, const std::string& bodyText) {
  const QString summary = Text(summaryText);
  const QString body = Text(bodyText);
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    showBox(summary, body);
    return;
  }
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Notify");
  QVariantMap hints;
  hints.insert("sound-name", QString("message-new-instant"));
  hints.insert("urgency", QVariant::fromValue<uchar>(1));
  hints.insert("category", QString("presence"));
  call << QString("Norvane") << 0u << QString("norvane") << summary << body << QStringList() << hints << kExpireMs;
  // Asynchronous, so that a slow or missing service never holds the window up.
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, 3000), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, summary, body](QDBusPendingCallWatcher* w) {
    w->deleteLater();
    if (w->isError()) {
      showBox(summary, body);
      return;
    }
    // A service that plays no sounds leaves the alert to the system beep.
    QDBusMessage ask = QDBusMessage::createMethodCall(kService, kPath, kInterface, "GetCapabilities");
    auto* caps = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(ask, 3000), this);
    connect(caps, &QDBusPendingCallWatcher::finished, this, [](QDBusPendingCallWatcher* c) {
      c->deleteLater();
      const QDBusPendingReply<QStringList> reply = *c;
      if (reply.isError() || !reply.value().contains("sound")) QApplication::beep();
    });
  });
}

void PassNotifier::showBox(const QString& summary, const QString& body) {
  QApplication::beep();
  // Alarms that fall due while the box is open join it.
  if (box_ != nullptr) {
    box_->setText(box_->text() + "\n\n" + summary + "\n" + body);
    return;
  }
  box_ = new QMessageBox(QMessageBox::Information, "Pass alarm", summary + "\n" + body, QMessageBox::Ok, window_);
  box_->setObjectName("passAlarmBox");
  box_->setAttribute(Qt::WA_DeleteOnClose);
  box_->setModal(false);
  box_->setWindowModality(Qt::NonModal);
  box_->show();
}

}  // namespace norvane
