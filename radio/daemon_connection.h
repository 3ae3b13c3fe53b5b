#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "core/radio/hamlib_reply.h"

namespace norvane {

// One TCP connection to rigctld or rotctld. Every call is bounded by its
// time-out and returns early when wakeFd becomes readable (the owner's stop
// signal), so the thread that makes the calls can always be stopped.
class DaemonConnection {
 public:
  DaemonConnection() = default;
  ~DaemonConnection() { close(); }
  DaemonConnection(const DaemonConnection&) = delete;
  DaemonConnection& operator=(const DaemonConnection&) = delete;

  // Connects to host:port; on failure the connection stays closed and error says why.
  bool connect(const std::string& host, int port, int timeoutMs, int wakeFd, std::string& error);
  // Sends one command line and waits for its reply; on a time-out, a closed
  // connection or a reply that makes no sense the connection is closed and
  // nullopt returned with the reason in error.
  std::optional<HamlibReply> request(std::string_view command, int expectedValues, int timeoutMs, int wakeFd,
                                     std::string& error);
  void close();
  bool isOpen() const { return fd_ >= 0; }

 private:
  int fd_ = -1;
  std::string pending_;  // bytes received after the last reply
};

}  // namespace norvane
