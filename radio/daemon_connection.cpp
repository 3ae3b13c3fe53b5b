#include "radio/daemon_connection.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>


namespace norvane {

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

int MsLeft(SteadyTime deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return left.count() < 0 ? 0 : static_cast<int>(left.count());
}

// Waits for events on fd until the deadline; 1 ready, 0 timed out, -1 woken or failed.
int WaitFor(int fd, short events, int wakeFd, SteadyTime deadline) {
  while (true) {
    pollfd fds[2] = {{fd, events, 0}, {wakeFd, POLLIN, 0}};
    const int n = ::poll(fds, wakeFd >= 0 ? 2 : 1, MsLeft(deadline));
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return -1;
    if (wakeFd >= 0 && (fds[1].revents & POLLIN) != 0) return -1;
    if (n == 0) return 0;
    return 1;
  }
}

}  // namespace

bool DaemonConnection::connect(const std::string& host, int port, int timeoutMs, int wakeFd, std::string& error) {
  close();
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const std::string service = std::to_string(port);
  if (::getaddrinfo(host.c_str(), service.c_str(), &hints, &found) != 0 || found == nullptr) {
    error = "unknown host " + host;
    return false;
  }
  const SteadyTime deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  error = "connection refused";
  for (addrinfo* a = found; a != nullptr && fd_ < 0; a = a->ai_next) {
    const int fd = ::socket(a->ai_family, a->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, a->ai_protocol);
    if (fd < 0) continue;
    int result = ::connect(fd, a->ai_addr, a->ai_addrlen);
    if (result != 0 && errno == EINPROGRESS) {
      const int ready = WaitFor(fd, POLLOUT, wakeFd, deadline);
      if (ready == 1) {
        int soError = 0;
        socklen_t length = sizeof soError;
        ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &soError, &length);
        result = soError == 0 ? 0 : -1;
        if (soError != 0) error = soError == ECONNREFUSED ? "connection refused" : std::strerror(soError);
      } else {
        error = ready == 0 ? "no answer to connect" : "stopped";
        result = -1;
      }
    } else if (result != 0) {
      error = errno == ECONNREFUSED ? "connection refused" : std::strerror(errno);
    }
    if (result == 0) {
      int one = 1;
      ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
      fd_ = fd;
    } else {
      ::close(fd);
    }
  }
  ::freeaddrinfo(found);
  pending_.clear();
  return fd_ >= 0;
}

std::optional<HamlibReply> DaemonConnection::request(std::string_view command, int expectedValues, int timeoutMs,
                                                     int wakeFd, std::string& error) {
  if (fd_ < 0) {
    error = "not connected";
    return std::nullopt;
  }
  const SteadyTime deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  std::string line(command);
  line += '\n';
  std::size_t sent = 0;
  while (sent < line.size()) {
    const ssize_t n = ::send(fd_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL);
    if (n > 0) {
      sent += static_cast<std::size_t>(n);
      continue;
    }
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) {
      if (WaitFor(fd_, POLLOUT, wakeFd, deadline) == 1) continue;
      error = "no answer";
    } else {
      error = "connection lost";
    }
    close();
    return std::nullopt;
  }
  while (true) {
    const HamlibReply reply = ParseHamlibReply(pending_, expectedValues);
    if (reply.status == ReplyStatus::Report || reply.status == ReplyStatus::Values) {
      pending_.erase(0, reply.consumed);
      return reply;
    }
    if (reply.status == ReplyStatus::Malformed) {
      error = "unexpected reply";
      close();
      return std::nullopt;
    }
    const int ready = WaitFor(fd_, POLLIN, wakeFd, deadline);
    if (ready != 1) {
      error = ready == 0 ? "no answer" : "stopped";
      close();
      return std::nullopt;
    }
    char buffer[512];
    const ssize_t n = ::recv(fd_, buffer, sizeof buffer, 0);
    if (n < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (n <= 0) {
      error = "connection lost";
      close();
      return std::nullopt;
    }
    pending_.append(buffer, static_cast<std::size_t>(n));
  }
}

void DaemonConnection::close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  pending_.clear();
}

}  // namespace norvane
