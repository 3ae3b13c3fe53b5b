#include "gps/gpsd_connection.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "gps/timed_read.h"

namespace norvane {
namespace {

constexpr int kConnectTimeoutMs = 2000;

class GpsdConnection final : public GpsPort {
 public:
  GpsdConnection(int fd, const std::atomic<bool>* abort) : fd_(fd), abort_(abort) {}
  ~GpsdConnection() override { ::close(fd_); }
  GpsdConnection(const GpsdConnection&) = delete;
  GpsdConnection& operator=(const GpsdConnection&) = delete;

  bool readByte(std::uint8_t& byte) override {
    if (abort_ != nullptr && abort_->load()) return false;
    if (next_ == filled_ && !fill()) return false;
    byte = buffer_[next_++];
    return true;
  }

  bool setLineSettings(int) override { return true; }
  bool setTimeouts() override { return true; }
  bool setRateOnly(int) override { return true; }
  bool broken() const override { return broken_; }

 private:
  bool fill() {
    if (broken_) return false;
    const std::size_t got = TimedRead(fd_, buffer_.data(), buffer_.size(), kGpsByteTimeoutMs, broken_);
    if (got == 0) return false;
    next_ = 0;
    filled_ = got;
    return true;
  }

  int fd_;
  const std::atomic<bool>* abort_;
  std::array<std::uint8_t, 512> buffer_{};
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool broken_ = false;
};

// A non-blocking connect that gives up after kConnectTimeoutMs, or as soon
// as *abort is set.
int Connect(const addrinfo& address, const std::atomic<bool>* abort) {
  const int fd = ::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC,
                          address.ai_protocol);
  if (fd < 0) return -1;
  if (::connect(fd, address.ai_addr, address.ai_addrlen) == 0) return fd;
  if (errno == EINPROGRESS) {
    for (int waited = 0; waited < kConnectTimeoutMs; waited += kGpsByteTimeoutMs) {
      if (abort != nullptr && abort->load()) break;
      pollfd p{fd, POLLOUT, 0};
      const int ready = ::poll(&p, 1, kGpsByteTimeoutMs);
      if (ready < 0 && errno != EINTR) break;
      if (ready != 1) continue;
      int error = 0;
      socklen_t size = sizeof error;
      if (::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0) return fd;
      break;
    }
  }
  ::close(fd);
  return -1;
}

bool SendAll(int fd, const char* text) {
  std::size_t left = std::strlen(text);
  while (left > 0) {
    pollfd p{fd, POLLOUT, 0};
    if (::poll(&p, 1, kConnectTimeoutMs) != 1) return false;
    const ssize_t sent = ::send(fd, text, left, MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    text += sent;
    left -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

bool ParseGpsdAddress(const std::string& device, std::string& host, std::string& port) {
  const std::string scheme = kGpsdScheme;
  if (device.compare(0, scheme.size(), scheme) != 0) return false;
  const std::string rest = device.substr(scheme.size());
  const std::size_t colon = rest.rfind(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == rest.size()) return false;
  host = rest.substr(0, colon);
  port = rest.substr(colon + 1);
  if (host.size() >= 2 && host.front() == '[' && host.back() == ']') host = host.substr(1, host.size() - 2);
  return !host.empty() && port.find_first_not_of("0123456789") == std::string::npos;
}

std::unique_ptr<GpsPort> OpenGpsdConnection(const std::string& device,
                                            const std::atomic<bool>* abort) {
  std::string host, port;
  if (!ParseGpsdAddress(device, host, port)) return nullptr;
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), port.c_str(), &hints, &found) != 0) return nullptr;
  int fd = -1;
  for (addrinfo* a = found; a != nullptr && fd < 0; a = a->ai_next) fd = Connect(*a, abort);
  ::freeaddrinfo(found);
  if (fd < 0) return nullptr;
  if (!SendAll(fd, kGpsdWatchNmea)) {
    ::close(fd);
    return nullptr;
  }
  return std::make_unique<GpsdConnection>(fd, abort);
}

}  // namespace norvane
