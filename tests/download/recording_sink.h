#pragma once
#include <string>
#include <vector>

#include "core/platform/message_sink.h"

namespace norvane::testing {

// Keeps every message box shown, in order.
class RecordingSink : public MessageSink {
 public:
  struct Shown {
    std::string text, title;
    MessageIcon icon;
  };
  void show(const std::string& text, const std::string& title, MessageIcon icon) override {
    shown.push_back({text, title, icon});
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> out;
    for (const Shown& s : shown) out.push_back(s.text);
    return out;
  }
  std::vector<Shown> shown;
};

}  // namespace norvane::testing
