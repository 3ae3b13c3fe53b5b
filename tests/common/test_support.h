#pragma once
// Helpers that tests of several folders share: message sinks, a scratch
// folder, whole-file reads and (loopback.h) ports on 127.0.0.1.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "core/platform/message_sink.h"
#include "tests/common/loopback.h"

namespace norvane::testing {

// Keeps every message box shown, in order.
class RecordingSink : public MessageSink {
 public:
  struct Shown {
    std::string text, title;
    MessageIcon icon;
    friend bool operator==(const Shown&, const Shown&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Shown& s) {
      return os << '"' << s.text << "\" \"" << s.title << (s.icon == MessageIcon::Stop ? "\" stop" : "\" info");
    }
  };

  void show(const std::string& text, const std::string& title, MessageIcon icon) override {
    shown.push_back({text, title, icon});
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> out;
    for (const Shown& s : shown) out.push_back(s.text);
    return out;
  }
  std::vector<std::string> titles() const {
    std::vector<std::string> out;
    for (const Shown& s : shown) out.push_back(s.title);
    return out;
  }
  std::vector<Shown> shown;
};

struct QuietSink : MessageSink {
  void show(const std::string&, const std::string&, MessageIcon) override {}
};

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// A fresh folder under /tmp, removed with everything in it at the end of the test.
class TempFolder {
 public:
  TempFolder() {
    char pattern[] = "/tmp/norvane-test-XXXXXX";
    if (::mkdtemp(pattern) != nullptr) path = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string operator/(const std::string& name) const { return path + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
    return *this / name;
  }
  std::string path;
};

}  // namespace norvane::testing
