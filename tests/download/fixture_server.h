#pragma once
#include <cstdlib>
#include <memory>
#include <string>

#include "tests/common/child_process.h"

namespace norvane::testing {

// tests/download/element_server.py run as a child process for the duration of a test suite.
class ElementServer {
 public:
  // Set by the CMake file of each test folder that uses it.
  static constexpr const char* kScript = NORVANE_ELEMENT_SERVER;

  // Starts the server and waits at most 10 s for its port; port() is 0 on failure.
  void start() {
    child_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"python3", kScript, NORVANE_DATA_DIR});
    port_ = std::atoi(child_->firstLine().c_str());
  }
  void stop() { child_.reset(); }

  int port() const { return port_; }
  std::string base(const std::string& mode) const { return "http://127.0.0.1:" + std::to_string(port_) + "/" + mode; }

 private:
  std::unique_ptr<ChildProcess> child_;
  int port_ = 0;
};

}  // namespace norvane::testing
