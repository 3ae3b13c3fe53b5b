#pragma once
#include <cstdio>
#include <string>
#include <vector>

#include "core/platform/message_sink.h"

namespace norvane::cli {

// Keeps what core would show in message boxes: error texts (stop icon) for
// stderr, and the last information text as a result to print.
class MessageCapture : public MessageSink {
 public:
  void show(const std::string& text, const std::string&, MessageIcon icon) override {
    if (icon == MessageIcon::Stop) {
      errors.push_back(text);
    } else {
      information = text;
      notes.push_back(text);
    }
  }
  // Writes every error text on its own line to stderr.
  void printErrors() const {
    for (const std::string& e : errors) std::fprintf(stderr, "%s\n", e.c_str());
  }

  std::vector<std::string> errors;
  std::string information;
  std::vector<std::string> notes;  // every information text, in order
};

}  // namespace norvane::cli
