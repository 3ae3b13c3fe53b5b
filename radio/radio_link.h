#pragma once
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "core/radio/doppler.h"
#include "core/radio/hamlib_reply.h"
#include "core/radio/radio_mode.h"
#include "core/radio/rotator.h"

namespace norvane {

// Where a daemon listens and how often it is updated.
struct DaemonEndpoint {
  bool enabled = false;
  std::string host = "127.0.0.1";
  int port = 0;
  int periodMs = 1000;  // ms between updates
};

struct RadioLinkConfig {
  DaemonEndpoint rig{false, "127.0.0.1", 4532, 1000};
  DaemonEndpoint rotator{false, "127.0.0.1", 4533, 1000};
  double rigToleranceHz = 10.0;   // Hz, smaller frequency changes are not sent
  double rotToleranceDeg = 2.0;   // deg, smaller moves are not sent
  int timeoutMs = 2000;           // ms a daemon has to connect or answer
  int firstRetryMs = 1000;        // ms before the first reconnection, doubled each failure
  int maxRetryMs = 30000;         // ms, the longest wait between retries
};

enum class LinkState : int { Off = 0, Connecting = 1, Connected = 2, Error = 3 };

struct DaemonStatus {
  LinkState state = LinkState::Off;
  std::string error;            // why the last attempt failed, while in Error
  std::uint64_t commands = 0;   // setting commands the daemon has accepted
};

struct RadioLinkStatus {
  DaemonStatus rig;
  DaemonStatus rotator;
  std::optional<double> rigRxHz;        // Hz, the radio's frequency as last read back
  std::optional<AzEl> rotatorPosition;  // deg, as last read back
};

// "off", "connecting", "connected" or "error: " and the reason.
std::string LinkStateText(const DaemonStatus& status);

// The station's link to rigctld and rotctld: a worker thread that connects,
// sends the latest targets at each daemon's period when they moved by more
// than the tolerance, reads the radio's frequency and the rotator's position
// back, and reconnects with a growing wait after any failure. Every public
// call returns at once; only the worker talks to the network.
class RadioLink {
 public:
  explicit RadioLink(const RadioLinkConfig& config);
  ~RadioLink();
  RadioLink(const RadioLink&) = delete;
  RadioLink& operator=(const RadioLink&) = delete;

  void start();
  void stop();  // returns within a few milliseconds

  void setFrequencies(const RadioFrequencies& frequencies);
  // The radio's modes; sent once per connection and whenever they change. A
  // mode the radio refuses is not tried again.
  void setModes(const std::optional<RadioModes>& modes);
  void setRotator(const AzEl& position);
  RadioLinkStatus status() const;
  // Commands sent since the last call, in order ("F 145800000", "P 123.4 12.0" ...).
  std::vector<std::string> takeSentCommands();
  const RadioLinkConfig& config() const { return config_; }

 private:
  struct Daemon;
  void run();
  void serviceRig(Daemon& d);
  void serviceRotator(Daemon& d);
  bool ensureConnected(Daemon& d);
  void fail(Daemon& d, const std::string& reason, bool dropConnection);
  bool send(Daemon& d, const std::string& command);
  // Asks a read-back command; a reply marks the daemon connected, no reply fails it.
  std::optional<HamlibReply> readBack(Daemon& d, std::string_view command, int expectedValues);
  void sendOptional(Daemon& d, const std::string& command);
  void logCommand(const std::string& command);

  RadioLinkConfig config_;
  std::unique_ptr<Daemon> rig_;
  std::unique_ptr<Daemon> rotator_;
  int wakeRead_ = -1;
  int wakeWrite_ = -1;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  bool stopping_ = false;
  std::optional<RadioFrequencies> frequencies_;
  std::optional<RadioModes> modes_;
  std::optional<AzEl> rotatorTarget_;
  RadioLinkStatus status_;
  std::vector<std::string> sent_;
  std::thread thread_;
};

}  // namespace norvane
