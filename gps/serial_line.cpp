#include "gps/serial_line.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "gps/timed_read.h"

namespace norvane {
namespace {

speed_t SpeedOf(int rate) {
  switch (rate) {
    case 600: return B600;
    case 1200: return B1200;
    case 2400: return B2400;
    case 4800: return B4800;
    case 9600: return B9600;
    case 19200: return B19200;
    case 38400: return B38400;
    case 57600: return B57600;
    case 115200: return B115200;
    default: return B0;  // 14400 and 56000 have no terminal speed here
  }
}

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
    const speed_t speed = SpeedOf(rate);
    if (speed == B0 || ::tcgetattr(fd_, &t) != 0) return false;
    ::cfmakeraw(&t);
    t.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB | CRTSCTS);
    t.c_cflag |= CS8 | CREAD | CLOCAL;
    t.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY | INPCK);
    if (::cfsetispeed(&t, speed) != 0 || ::cfsetospeed(&t, speed) != 0) return false;
    if (::tcsetattr(fd_, TCSANOW, &t) != 0) return false;
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

  bool setRateOnly(int rate) override {
    termios t{};
    const speed_t speed = SpeedOf(rate);
    if (speed == B0 || ::tcgetattr(fd_, &t) != 0) return false;
    if (::cfsetispeed(&t, speed) != 0 || ::cfsetospeed(&t, speed) != 0) return false;
    return ::tcsetattr(fd_, TCSANOW, &t) == 0;
  }

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
