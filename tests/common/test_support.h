#pragma once
// Helpers that tests of several folders share: message sinks, a scratch
// folder, whole-file reads and a loopback port nobody listens on.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
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

// A port on 127.0.0.1 where nothing listens right now; 0 if none was found.
inline int FreeLoopbackPort() {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  const bool bound = ::bind(fd, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                     ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0;
  ::close(fd);
  return bound ? ntohs(address.sin_port) : 0;
}

}  // namespace norvane::testing
