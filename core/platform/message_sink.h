#pragma once
#include <string>

namespace norvane {

enum class MessageIcon { Stop, Information };

// Where core shows its message boxes: a text, a title (often empty) and an icon.
class MessageSink {
 public:
  virtual ~MessageSink() = default;
  virtual void show(const std::string& text, const std::string& title, MessageIcon icon) = 0;
};

}  // namespace norvane
