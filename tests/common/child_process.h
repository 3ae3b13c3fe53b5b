#pragma once
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace norvane::testing {

// A program run for the length of a test, its output on a pipe and its errors
// dropped; ended by its own pid (SIGTERM, SIGKILL after two seconds).
class ChildProcess {
 public:
  explicit ChildProcess(std::vector<std::string> args) {
    int fds[2];
    if (::pipe(fds) != 0) return;
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, fds[0]);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawnp(&pid_, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    out_ = fds[0];
  }
  ~ChildProcess() {
    if (out_ >= 0) ::close(out_);
    if (pid_ <= 0) return;
    ::kill(pid_, SIGTERM);
    for (int i = 0; i < 100 && ::waitpid(pid_, nullptr, WNOHANG) == 0; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    if (::waitpid(pid_, nullptr, WNOHANG) == 0) {
      ::kill(pid_, SIGKILL);
      ::waitpid(pid_, nullptr, 0);
    }
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool started() const { return pid_ > 0; }

  // The first line of output, waiting at most ten seconds; empty if none came.
  std::string firstLine() {
    std::string line;
    for (int waited = 0; waited < 100 && line.find('\n') == std::string::npos; ++waited) {
      pollfd p{out_, POLLIN, 0};
      if (::poll(&p, 1, 100) <= 0) continue;
      char buffer[32];
      const ssize_t n = ::read(out_, buffer, sizeof buffer);
      if (n <= 0) break;
      line.append(buffer, static_cast<std::size_t>(n));
    }
    return line.find('\n') == std::string::npos ? "" : line.substr(0, line.find('\n'));
  }

 private:
  pid_t pid_ = -1;
  int out_ = -1;
};

}  // namespace norvane::testing
