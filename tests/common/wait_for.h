#pragma once
#include <chrono>
#include <thread>

namespace norvane::testing {

// Polls condition every 10 ms until it holds or timeout passes; its last answer.
template <typename Condition>
bool WaitFor(Condition condition, std::chrono::milliseconds timeout = std::chrono::seconds(8)) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (std::chrono::steady_clock::now() < deadline) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return condition();
}

}  // namespace norvane::testing
