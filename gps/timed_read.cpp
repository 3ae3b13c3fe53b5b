#include "gps/timed_read.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace norvane {

std::size_t TimedRead(int fd, void* buffer, std::size_t size, int timeoutMs, bool& broken) {
  pollfd p{fd, POLLIN, 0};
  int ready = 0;
  do {
    ready = ::poll(&p, 1, timeoutMs);
  } while (ready < 0 && errno == EINTR);
  if (ready <= 0) return 0;
  ssize_t got = 0;
  do {
    got = ::read(fd, buffer, size);
  } while (got < 0 && errno == EINTR);
  if (got > 0) return static_cast<std::size_t>(got);
  // Nothing to read although poll said so: the other end has gone.
  if (got == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) broken = true;
  return 0;
}

}  // namespace norvane
