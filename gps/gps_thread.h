#pragma once
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "core/platform/clock.h"
#include "gps/gps_data.h"
#include "gps/gps_port.h"
#include "gps/gps_settings.h"
#include "gps/port_tables.h"
#include "gps/read_plan.h"

namespace norvane {

// The receiver's reader: a thread that opens the chosen port, runs the read
// plan of the view shown and publishes the whole GpsData record after every
// pass. Every member may be called from any thread.
class GpsThread {
 public:
  explicit GpsThread(Clock& clock);
  ~GpsThread();  // stops the thread
  GpsThread(const GpsThread&) = delete;
  GpsThread& operator=(const GpsThread&) = delete;

  // Settings and port map for the next pass.
  void configure(const GpsSettings& settings, const GpsPortMap& map);
  // The view shown (GpsView) and the timer phase (0..3).
  void setView(int view);
  void setPhase(int phase);

  // Starts reading into a copy of initial unless the thread runs.
  void start(const GpsData& initial = {});
  // Ends the thread; returns within a byte time-out plus the closing of the port.
  void stop();
  bool running() const;

  // Makes the thread let go of its port and leave it closed until
  // resumePort() (a port test opens it meanwhile); returns once the port is
  // closed, or after a second.
  void releasePort();
  void resumePort();

  // The record as the last pass left it, never half written.
  GpsData data() const;
  // The observer change of the latest pass that had a position, once.
  std::optional<GpsObserverUpdate> takeObserverUpdate();
  // Passes that ran a read cycle since start.
  std::uint64_t cycles() const;

 private:
  void run(GpsData working);
  bool pass(GpsPort& port, GpsData& working, const GpsSettings& settings);
  std::unique_ptr<GpsPort> openPort(const GpsSettings& settings, const GpsPortMap& map);
  void closePort(std::unique_ptr<GpsPort>& port);
  void idle();

  Clock& clock_;
  std::atomic<int> view_{kGpsViewInfo};
  std::atomic<int> phase_{0};
  std::atomic<bool> running_{false};
  std::atomic<bool> abortReads_{false};
  std::atomic<bool> releaseRequested_{false};
  std::atomic<std::uint64_t> cycles_{0};

  std::mutex lifecycle_;      // serialises start and stop
  mutable std::mutex mutex_;  // guards everything below
  std::condition_variable wake_;
  GpsSettings settings_;
  GpsPortMap map_;
  GpsData published_;
  std::optional<GpsObserverUpdate> observerUpdate_;
  bool portOpen_ = false;
  bool portHeld_ = false;  // released to someone else: not opened
  bool opening_ = false;
  std::thread thread_;
};

}  // namespace norvane
