#include "gps/gps_thread.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>

#include "gps/nmea_decoder.h"

namespace norvane {
namespace {

// A pass that had nothing to do waits this long before the next one.
constexpr auto kIdleWait = std::chrono::milliseconds(50);

// The reader gives way to drawing and propagation (best effort).
void LowerThreadPriority() {
  const auto tid = static_cast<id_t>(::syscall(SYS_gettid));
  (void)::setpriority(PRIO_PROCESS, tid, 19);
}

}  // namespace

GpsThread::GpsThread(Clock& clock) : clock_(clock) {}

GpsThread::~GpsThread() { stop(); }

void GpsThread::configure(const GpsSettings& settings, const GpsPortMap& map) {
  std::lock_guard lock(mutex_);
  settings_ = settings;
  map_ = map;
}

void GpsThread::setView(int view) { view_.store(view); }
void GpsThread::setPhase(int phase) { phase_.store(phase); }

void GpsThread::start(const GpsData& initial) {
  std::lock_guard lifecycle(lifecycle_);
  if (running_.load()) return;
  if (thread_.joinable()) thread_.join();
  {
    std::lock_guard lock(mutex_);
    published_ = initial;
    observerUpdate_.reset();
    abortReads_.store(false);
    releaseRequested_ = false;
    running_.store(true);
  }
  thread_ = std::thread(&GpsThread::run, this, initial);
}

void GpsThread::stop() {
  std::lock_guard lifecycle(lifecycle_);
  {
    std::lock_guard lock(mutex_);
    running_.store(false);
    abortReads_.store(true);
  }
  wake_.notify_all();
  if (thread_.joinable()) thread_.join();
}

bool GpsThread::running() const { return running_.load(); }

void GpsThread::releasePort() {
  std::unique_lock lock(mutex_);
  portHeld_ = true;
  if (!running_.load()) return;
  if (portOpen_) {
    releaseRequested_ = true;
    abortReads_.store(true);
    wake_.notify_all();
  }
  wake_.wait_for(lock, std::chrono::seconds(1),
                 [this] { return (!portOpen_ && !opening_) || !running_.load(); });
}

void GpsThread::resumePort() {
  std::lock_guard lock(mutex_);
  portHeld_ = false;
}

GpsData GpsThread::data() const {
  std::lock_guard lock(mutex_);
  return published_;
}

std::optional<GpsObserverUpdate> GpsThread::takeObserverUpdate() {
  std::lock_guard lock(mutex_);
  std::optional<GpsObserverUpdate> update = observerUpdate_;
  observerUpdate_.reset();
  return update;
}

std::uint64_t GpsThread::cycles() const { return cycles_.load(); }

void GpsThread::closePort(std::unique_ptr<GpsPort>& port) {
  port.reset();
  std::lock_guard lock(mutex_);
  portOpen_ = false;
  if (releaseRequested_) {
    releaseRequested_ = false;
    abortReads_.store(!running_.load());
  }
  wake_.notify_all();
}

void GpsThread::idle() {
  std::unique_lock lock(mutex_);
  wake_.wait_for(lock, kIdleWait, [this] { return !running_.load() || releaseRequested_; });
}

bool GpsThread::pass(GpsPort& port, GpsData& working, const GpsSettings& settings) {
  const std::optional<NmeaWanted> plan = GpsReadPlan(view_.load(), phase_.load());
  if (plan) {
    GpsReadCycle(port, working, *plan, clock_, NmeaOptions{settings.acceptGn == 1});
    cycles_.fetch_add(1);
  }
  const GpsObserverUpdate update = GpsPositionUpdate(working);
  std::lock_guard lock(mutex_);
  published_ = working;
  if (update.position) observerUpdate_ = update;
  return plan.has_value();
}

std::unique_ptr<GpsPort> GpsThread::openPort(const GpsSettings& settings, const GpsPortMap& map) {
  {
    std::lock_guard lock(mutex_);
    if (portHeld_) return nullptr;
    opening_ = true;
  }
  std::unique_ptr<GpsPort> port = OpenGpsDevice(GpsDeviceOf(map, settings.portIndex), &abortReads_);
  std::lock_guard lock(mutex_);
  opening_ = false;
  if (portHeld_) port.reset();  // released while it was being opened
  portOpen_ = port != nullptr;
  wake_.notify_all();
  return port;
}

void GpsThread::run(GpsData working) {
  LowerThreadPriority();
  std::unique_ptr<GpsPort> port;  // kept across passes by the alternative method only
  while (running_.load()) {
    GpsSettings settings;
    GpsPortMap map;
    bool release = false;
    {
      std::lock_guard lock(mutex_);
      settings = settings_;
      map = map_;
      release = releaseRequested_;
    }
    if (release) closePort(port);
    bool cycled = false;
    if (settings.tracking != 1) {
      // Tracking off: the port is not touched.
    } else if (settings.altReading != 1) {
      if (port) closePort(port);
      // Opened and closed once per pass; the port keeps the settings it has.
      std::unique_ptr<GpsPort> passPort = openPort(settings, map);
      if (passPort) {
        cycled = pass(*passPort, working, settings);
        closePort(passPort);
      }
    } else {
      if (!port) {
        port = openPort(settings, map);
        if (port) (void)port->setRateOnly(GpsBaudRate(settings.baudIndex));
      }
      if (port) {
        cycled = pass(*port, working, settings);
        // A device that hung up is opened afresh on the next pass.
        if (port->broken()) closePort(port);
      }
    }
    if (!cycled) idle();
  }
  if (port) closePort(port);
}

}  // namespace norvane
