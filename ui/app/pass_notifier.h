#pragma once
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <string>

class QWidget;

namespace norvane {

// Announces a pass on the desktop: a notification through the freedesktop
// notification service on the session bus, with a sound (or the system beep
// where the service plays none). Where no service answers, a message box that
// does not block the window.
class PassNotifier : public QObject {
 public:
  explicit PassNotifier(QWidget* window);

  void notify(const std::string& summary, const std::string& body);

  // The last fallback box, while it is open.
  QMessageBox* fallbackBox() const { return box_; }

 private:
  void showBox(const QString& summary, const QString& body);

  QWidget* window_;
  QPointer<QMessageBox> box_;
};

}  // namespace norvane
