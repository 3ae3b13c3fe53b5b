#pragma once
#include <QWidget>
#include <functional>

#include "core/platform/message_sink.h"

namespace norvane {

// Message boxes: the stop icon as a critical box, everything else as an
// information box; texts and titles as given. Modal unless told otherwise
// (boxes raised before the event loop runs stay open beside the window).
class QtMessageSink : public MessageSink {
 public:
  explicit QtMessageSink(QWidget* parent) : parent_(parent) {}
  void show(const std::string& text, const std::string& title, MessageIcon icon) override;
  void setModal(bool modal) { modal_ = modal; }

 private:
  QWidget* parent_;
  bool modal_ = true;
};

}  // namespace norvane
