#include "radio/radio_link.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/text/format.h"
#include "radio/daemon_connection.h"

namespace norvane {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::size_t kSentLogMax = 256;

}  // namespace

// One daemon as the worker sees it; touched only by the worker thread.
struct RadioLink::Daemon {
  const char* name;
  DaemonEndpoint endpoint;
  DaemonConnection connection;
  Clock::time_point nextUpdate{};
  Clock::time_point retryAt{};
  int retryMs = 0;
  std::optional<bool> split;  // the radio's split state as last set; unknown after connecting
  std::optional<std::string> modesSent;  // "rx/tx" last sent
  std::optional<RadioFrequencies> lastSent;
  std::optional<AzEl> lastPosition;
  DaemonStatus status;
};

std::string LinkStateText(const DaemonStatus& status) {
  switch (status.state) {
    case LinkState::Connecting: return "connecting";
    case LinkState::Connected: return "connected";
    case LinkState::Error: return "error: " + status.error;
    case LinkState::Off: break;
  }
  return "off";
}

RadioLink::RadioLink(const RadioLinkConfig& config)
    : config_(config), rig_(std::make_unique<Daemon>()), rotator_(std::make_unique<Daemon>()) {
  rig_->name = "rigctld";
  rig_->endpoint = config.rig;
  rotator_->name = "rotctld";
  rotator_->endpoint = config.rotator;
  int fds[2];
  if (::pipe2(fds, O_CLOEXEC | O_NONBLOCK) == 0) {
    wakeRead_ = fds[0];
    wakeWrite_ = fds[1];
  }
}

RadioLink::~RadioLink() {
  stop();
  if (wakeRead_ >= 0) ::close(wakeRead_);
  if (wakeWrite_ >= 0) ::close(wakeWrite_);
}

void RadioLink::start() {
  if (thread_.joinable()) return;
  {
    std::lock_guard lock(mutex_);
    stopping_ = false;
  }
  thread_ = std::thread([this] { run(); });
}

void RadioLink::stop() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  changed_.notify_all();
  if (wakeWrite_ >= 0) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t n = ::write(wakeWrite_, &byte, 1);
  }
  if (thread_.joinable()) thread_.join();
  if (wakeRead_ >= 0) {
    char drain[16];
    while (::read(wakeRead_, drain, sizeof drain) > 0) {
    }
  }
}

void RadioLink::setFrequencies(const RadioFrequencies& frequencies) {
  std::lock_guard lock(mutex_);
  frequencies_ = frequencies;
}

void RadioLink::setModes(const std::optional<RadioModes>& modes) {
  std::lock_guard lock(mutex_);
  modes_ = modes;
}

void RadioLink::setRotator(const AzEl& position) {
  std::lock_guard lock(mutex_);
  rotatorTarget_ = position;
}

RadioLinkStatus RadioLink::status() const {
  std::lock_guard lock(mutex_);
  return status_;
}

std::vector<std::string> RadioLink::takeSentCommands() {
  std::lock_guard lock(mutex_);
  std::vector<std::string> out;
  out.swap(sent_);
  return out;
}

void RadioLink::logCommand(const std::string& command) {
  std::lock_guard lock(mutex_);
  if (sent_.size() < kSentLogMax) sent_.push_back(command);
}

void RadioLink::run() {
  while (true) {
    {
      std::lock_guard lock(mutex_);
      if (stopping_) break;
    }
    if (rig_->endpoint.enabled) serviceRig(*rig_);
    if (rotator_->endpoint.enabled) serviceRotator(*rotator_);
    {
      std::lock_guard lock(mutex_);
      status_.rig = rig_->status;
      status_.rotator = rotator_->status;
    }
    // Sleep until the next daemon is due (or its retry time comes).
    Clock::time_point wake = Clock::now() + std::chrono::milliseconds(1000);
    for (const Daemon* d : {rig_.get(), rotator_.get()}) {
      if (!d->endpoint.enabled) continue;
      wake = std::min(wake, std::max(d->nextUpdate, d->retryAt));
    }
    std::unique_lock lock(mutex_);
    changed_.wait_until(lock, wake, [this] { return stopping_; });
    if (stopping_) break;
  }
  rig_->connection.close();
  rotator_->connection.close();
}

void RadioLink::fail(Daemon& d, const std::string& reason, bool dropConnection) {
  if (dropConnection) {
    d.connection.close();
    d.split.reset();
    d.modesSent.reset();
    d.lastSent.reset();
    d.lastPosition.reset();
  }
  d.status.state = LinkState::Error;
  d.status.error = reason;
  d.retryMs = d.retryMs == 0 ? config_.firstRetryMs : std::min(d.retryMs * 2, config_.maxRetryMs);
  d.retryAt = Clock::now() + std::chrono::milliseconds(d.retryMs);
}

bool RadioLink::ensureConnected(Daemon& d) {
  if (d.connection.isOpen()) return true;
  if (Clock::now() < d.retryAt) return false;
  d.status.state = LinkState::Connecting;
  std::string error;
  if (!d.connection.connect(d.endpoint.host, d.endpoint.port, config_.timeoutMs, wakeRead_, error)) {
    fail(d, format("%s %s:%d: ", d.name, d.endpoint.host.c_str(), d.endpoint.port) + error, true);
    return false;
  }
  d.status.state = LinkState::Connected;
  d.status.error.clear();
  return true;
}

// Sends a setting command; false (and the link marked) when it was not accepted.
bool RadioLink::send(Daemon& d, const std::string& command) {
  std::string error;
  const auto reply = d.connection.request(command, 0, config_.timeoutMs, wakeRead_, error);
  if (!reply) {
    fail(d, std::string(d.name) + ": " + error, true);
    return false;
  }
  logCommand(command);
  if (reply->code != 0) {
    // The daemon is there but refuses: keep the connection, wait before trying again.
    fail(d, format("%s: %s answered RPRT %d (%s)", d.name, command.c_str(), reply->code,
                   HamlibErrorText(reply->code).c_str()),
         false);
    return false;
  }
  ++d.status.commands;
  return true;
}

// A command the radio may lack (a mode, split off): a refusal is left at that, a lost link is not.
void RadioLink::sendOptional(Daemon& d, const std::string& command) {
  std::string error;
  const auto reply = d.connection.request(command, 0, config_.timeoutMs, wakeRead_, error);
  if (!reply) {
    fail(d, std::string(d.name) + ": " + error, true);
    return;
  }
  logCommand(command);
  if (reply->code == 0) ++d.status.commands;
}

void RadioLink::serviceRig(Daemon& d) {
  const Clock::time_point now = Clock::now();
  if (now < d.nextUpdate || now < d.retryAt) return;
  d.nextUpdate = now + std::chrono::milliseconds(std::max(d.endpoint.periodMs, 10));
  if (!ensureConnected(d)) return;
  std::optional<RadioFrequencies> target;
  std::optional<RadioModes> modes;
  {
    std::lock_guard lock(mutex_);
    target = frequencies_;
    modes = modes_;
  }
  bool ok = true;
  if (target) {
    const double rx = std::round(target->rxHz);
    const double tx = std::round(target->txHz);
    const double tol = config_.rigToleranceHz;
    const bool rxMoved = !d.lastSent || std::fabs(rx - d.lastSent->rxHz) > tol;
    const bool txMoved = tx > 0 && (!d.lastSent || std::fabs(tx - d.lastSent->txHz) > tol);
    if (rxMoved || txMoved) {
      RadioFrequencies sent = d.lastSent.value_or(RadioFrequencies{});
      if (rxMoved && (ok = send(d, format("F %.0f", rx)))) sent.rxHz = rx;
      if (ok && tx > 0 && d.split != true && (ok = send(d, "S 1 VFOB"))) d.split = true;
      if (ok && txMoved && (ok = send(d, format("I %.0f", tx)))) sent.txHz = tx;
      if (ok) d.lastSent = sent;
    }
    // A receive-only channel: the transmitter back on the receive VFO.
    if (ok && tx <= 0 && d.split != false) {
      sendOptional(d, "S 0 VFOA");
      d.split = false;
    }
    if (ok && modes && d.connection.isOpen()) {
      const std::string key = modes->rx + "/" + (tx > 0 ? modes->tx : "");
      if (d.modesSent != key) {
        d.modesSent = key;
        sendOptional(d, "M " + modes->rx + " 0");
        if (tx > 0 && d.connection.isOpen()) sendOptional(d, "X " + modes->tx + " 0");
      }
    }
  }
  if (!ok || !d.connection.isOpen()) return;
  // Read the frequency back: it shows what the radio is on, and finds a daemon that went away.
  const auto reply = readBack(d, "f", 1);
  if (!reply) return;
  std::lock_guard lock(mutex_);
  if (reply->status == ReplyStatus::Values) status_.rigRxHz = reply->values[0];
}

std::optional<HamlibReply> RadioLink::readBack(Daemon& d, std::string_view command, int expectedValues) {
  std::string error;
  auto reply = d.connection.request(command, expectedValues, config_.timeoutMs, wakeRead_, error);
  if (!reply) {
    fail(d, std::string(d.name) + ": " + error, true);
    return std::nullopt;
  }
  d.retryMs = 0;
  d.status.state = LinkState::Connected;
  d.status.error.clear();
  return reply;
}

void RadioLink::serviceRotator(Daemon& d) {
  const Clock::time_point now = Clock::now();
  if (now < d.nextUpdate || now < d.retryAt) return;
  d.nextUpdate = now + std::chrono::milliseconds(std::max(d.endpoint.periodMs, 10));
  if (!ensureConnected(d)) return;
  std::optional<AzEl> target;
  {
    std::lock_guard lock(mutex_);
    target = rotatorTarget_;
  }
  if (target && (!d.lastPosition || RotatorNeedsMove(*d.lastPosition, *target, config_.rotToleranceDeg))) {
    if (!send(d, format("P %.1f %.1f", target->azimuthDeg, target->elevationDeg))) return;
    d.lastPosition = target;
  }
  const auto reply = readBack(d, "p", 2);
  if (!reply) return;
  std::lock_guard lock(mutex_);
  if (reply->status == ReplyStatus::Values) status_.rotatorPosition = AzEl{reply->values[0], reply->values[1]};
}

}  // namespace norvane
