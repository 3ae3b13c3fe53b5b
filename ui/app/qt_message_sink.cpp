#include "ui/app/qt_message_sink.h"

#include <QMessageBox>

namespace norvane {

void QtMessageSink::show(const std::string& text, const std::string& title, MessageIcon icon) {
  auto* box = new QMessageBox(icon == MessageIcon::Stop ? QMessageBox::Critical : QMessageBox::Information,
                              QString::fromStdString(title), QString::fromStdString(text), QMessageBox::Ok, parent_);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setObjectName("message");
  if (modal_) {
    box->exec();
  } else {
    box->setModal(false);
    box->show();
  }
}

}  // namespace norvane
