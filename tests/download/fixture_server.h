#pragma once
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

extern char** environ;

namespace norvane::testing {

// tests/download/element_server.py run as a child process for the duration of a test suite.
class ElementServer {
 public:
  // Starts the server and waits at most 10 s for its port; port() is 0 on failure.
  void start() {
    int fds[2];
    if (pipe(fds) != 0) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, fds[0]);
    std::string script = NORVANE_TEST_DIR "/element_server.py";
    std::string data = NORVANE_DATA_DIR;
    char python[] = "python3";
    char* argv[] = {python, script.data(), data.data(), nullptr};
    if (posix_spawnp(&pid_, "python3", &actions, nullptr, argv, environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
    close(fds[1]);
    port_ = readPort(fds[0]);
    close(fds[0]);
  }

  void stop() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
    pid_ = -1;
  }

  int port() const { return port_; }
  std::string base(const std::string& mode) const {
    return "http://127.0.0.1:" + std::to_string(port_) + "/" + mode;
  }

 private:
  static int readPort(int fd) {
    std::string line;
    for (int waited = 0; waited < 100 && line.find('\n') == std::string::npos; ++waited) {
      pollfd p{fd, POLLIN, 0};
      if (poll(&p, 1, 100) <= 0) continue;
      char buffer[32];
      const ssize_t n = read(fd, buffer, sizeof buffer);
      if (n <= 0) break;
      line.append(buffer, static_cast<std::size_t>(n));
    }
    return line.find('\n') == std::string::npos ? 0 : std::atoi(line.c_str());
  }

  pid_t pid_ = -1;
  int port_ = 0;
};

}  // namespace norvane::testing
