#include "gps/serial_line.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "gps/line_speed.h"
#include "gps/timed_read.h"

namespace norvane {
namespace {

class SerialLine final : public GpsPort {
 public:
  SerialLine(int fd, const std::atomic<bool>* abort) : fd_(fd), abort_(abort) {}
  ~SerialLine() override { ::close(fd_); }
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;

  bool readByte(std::uint8_t& byte) override {
    if (broken_ || (abort_ != nullptr && abort_->load())) return false;
    return TimedRead(fd_, &byte, 1, kGpsByteTimeoutMs, broken_) == 1;
  }

  bool setLineSettings(int rate) override {
    termios t{};
    if (rate <= 0 || ::tcgetattr(fd_, &t) != 0) return false;
    ::cfmakeraw(&t);
    t.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB | CRTSCTS);
    t.c_cflag |= CS8 | CREAD | CLOCAL;
    t.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY | INPCK);
    if (::tcsetattr(fd_, TCSANOW, &t) != 0 || !SetLineSpeed(fd_, rate)) return false;
    int lines = TIOCM_DTR | TIOCM_RTS;
    (void)::ioctl(fd_, TIOCMBIS, &lines);  // a pseudo-terminal has no modem lines
    return true;
  }

  bool setTimeouts() override {
    // Reads wait in poll(); the terminal itself returns whatever it has.
    termios t{};
    if (::tcgetattr(fd_, &t) != 0) return false;
    t.c_cc[VMIN] = 0;
    t.c_cc[VTIME] = 1;
    return ::tcsetattr(fd_, TCSANOW, &t) == 0;
  }

  bool setRateOnly(int rate) override { return SetLineSpeed(fd_, rate); }

  bool broken() const override { return broken_; }

 private:
  int fd_;
  const std::atomic<bool>* abort_;
  bool broken_ = false;
};

}  // namespace

std::unique_ptr<GpsPort> OpenSerialLine(const std::string& path, const std::atomic<bool>* abort) {
  const int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return nullptr;
  // Not shared: a second open of the same port fails while this one lasts.
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    ::close(fd);
    return nullptr;
  }
  return std::make_unique<SerialLine>(fd, abort);
}

}  // namespace norvane
