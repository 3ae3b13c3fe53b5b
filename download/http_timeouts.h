#pragma once

namespace norvane {

// Limits of one fetch, in milliseconds. A server that has not answered within
// responseMs counts as unreachable; one that stops sending the body for idleMs,
// or has not finished it within totalMs, as a broken read.
struct HttpTimeouts {
  int responseMs = 20000;
  int idleMs = 20000;
  int totalMs = 120000;
};

}  // namespace norvane
