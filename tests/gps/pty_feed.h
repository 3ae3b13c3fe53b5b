#pragma once
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "tests/common/wait_for.h"

namespace norvane::test {

// The receiver's end of a serial line: a pseudo-terminal master whose slave
// device plays the port.
class PtyEnd {
 public:
  // raw: a line as a receiver expects it once configured, no echo.
  explicit PtyEnd(bool raw = false) {
    fd_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0 || ::grantpt(fd_) != 0 || ::unlockpt(fd_) != 0) return;
    char name[128] = {};
    if (::ptsname_r(fd_, name, sizeof name) == 0) path_ = name;
    termios t{};
    if (raw && ::tcgetattr(fd_, &t) == 0) {
      ::cfmakeraw(&t);
      ::tcsetattr(fd_, TCSANOW, &t);
    }
  }
  ~PtyEnd() { hangUp(); }
  PtyEnd(const PtyEnd&) = delete;
  PtyEnd& operator=(const PtyEnd&) = delete;

  bool ok() const { return fd_ >= 0 && !path_.empty(); }
  int fd() const { return fd_; }
  const std::string& path() const { return path_; }  // the port's device

  // Writes all of bytes, one byte per perByte, giving up at the deadline.
  bool write(const std::string& bytes, std::chrono::microseconds perByte,
             std::chrono::steady_clock::time_point deadline) {
    for (const char c : bytes) {
      for (;;) {
        if (fd_ < 0 || std::chrono::steady_clock::now() > deadline) return false;
        const ssize_t n = ::write(fd_, &c, 1);
        if (n == 1) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      if (perByte.count() > 0) std::this_thread::sleep_for(perByte);
    }
    return true;
  }

  void hangUp() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

 private:
  int fd_ = -1;
  std::string path_;
};

// A receiver that repeats a script into a pseudo-terminal until destroyed
// (or for at most 30 s).
class Receiver {
 public:
  Receiver(PtyEnd& end, std::string script, std::chrono::microseconds perByte)
      : thread_([this, &end, script = std::move(script), perByte] {
          const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
          while (!stop_.load() && end.write(script, perByte, deadline)) {
          }
        }) {}
  ~Receiver() {
    stop_.store(true);
    thread_.join();
  }

 private:
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

using testing::WaitFor;

}  // namespace norvane::test
