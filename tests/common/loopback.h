#pragma once
// Ports on 127.0.0.1 for the tests of network clients: one where nothing
// listens and one that never answers.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace norvane::testing {

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

// A socket listening on 127.0.0.1 that never accepts nor answers; port is 0
// when none could be opened.
class SilentListener {
 public:
  SilentListener() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (::bind(fd_, reinterpret_cast<sockaddr*>(&address), size) == 0 && ::listen(fd_, 4) == 0 &&
        ::getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &size) == 0) {
      port = ntohs(address.sin_port);
    }
  }
  ~SilentListener() { ::close(fd_); }
  SilentListener(const SilentListener&) = delete;
  SilentListener& operator=(const SilentListener&) = delete;
  int port = 0;

 private:
  int fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
};

}  // namespace norvane::testing
