#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "gps/device_list.h"
#include "gps/gps_port.h"
#include "gps/gps_receiver.h"
#include "gps/gps_thread.h"
#include "gps/line_speed.h"
#include "gps/nmea_decoder.h"
#include "gps/steady_clock.h"
#include "tests/common/test_support.h"
#include "tests/gps/nmea_feed.h"
#include "tests/gps/pty_feed.h"

namespace norvane {
namespace {

using namespace std::chrono_literals;
using test::Nmea;
using test::PtyEnd;
using test::Receiver;
using test::WaitFor;

constexpr auto kSerialPace = 200us;  // about 48000 baud

// One fix of every kind, with noise a real line carries between sentences.
std::string Script(const std::string& latitude, const std::string& longitude) {
  return "\x01garbage\xff\r\n" + Nmea("GPRMC,101500.00,A," + latitude + ",N," + longitude + ",E,1.0,,010203,,") +
         "$GP" + std::string(150, 'Z') + "\r\n" +  // over-long line
         Nmea("GPVTG,90.0,T,,,,,5.0,K") +
         Nmea("GPGGA,101500.00," + latitude + ",N," + longitude + ",E,1,07,1.1,120.0,M,,,,") +
         Nmea("GPGSA,A,3,05,07,,,,,,,,,,,2.0,1.1,1.7") + Nmea("GPGSV,1,1,02,05,45,180,40,07,10,90,31");
}

GpsPortMap MapTo(const std::string& device) {
  GpsPortMap map;
  map.devices[1] = device;
  return map;
}

GpsSettings Tracking(int altReading) {
  GpsSettings s;
  s.portIndex = 1;
  s.baudIndex = 4;  // 9600
  s.altReading = altReading;
  return s;
}

void Start(GpsThread& thread, const GpsSettings& settings, const std::string& device, int view) {
  thread.configure(settings, MapTo(device));
  thread.setView(view);
  thread.start();
}

TEST(GpsPort, OpeningSetsTheLineOrSaysWhy) {
  PtyEnd end;
  ASSERT_TRUE(end.ok());
  std::string message;
  EXPECT_EQ(OpenGpsPort("COM3:", "/nonexistent/tty", 4800, message), nullptr);
  EXPECT_EQ(message, "Could not open the COM3: port");
  // Every speed of the table opens, the two without a terminal constant included.
  for (const GpsBaud& baud : kGpsBaudTable) {
    EXPECT_NE(OpenGpsPort("COM1:", end.path(), baud.rate, message), nullptr) << baud.text << ": " << message;
    EXPECT_EQ(LineSpeed(end.fd()), baud.rate) << baud.text;
  }
  EXPECT_EQ(OpenGpsPort("COM1:", "/dev/null", 4800, message), nullptr);  // not a line
  EXPECT_EQ(message, "SetCommState Error");

  auto port = OpenGpsPort("COM1:", end.path(), 4800, message);
  ASSERT_NE(port, nullptr);
  termios t{};
  ASSERT_EQ(::tcgetattr(end.fd(), &t), 0);
  EXPECT_EQ(::cfgetispeed(&t), static_cast<speed_t>(B4800));
  EXPECT_EQ(t.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
  EXPECT_EQ(t.c_lflag & (ICANON | ECHO), 0u);
  EXPECT_EQ(t.c_iflag & (IXON | IXOFF | ICRNL), 0u);
  EXPECT_EQ(OpenGpsDevice(end.path()), nullptr);  // not shared

  // A silent line gives up after the byte time-out.
  std::uint8_t byte = 0;
  const auto before = std::chrono::steady_clock::now();
  EXPECT_FALSE(port->readByte(byte));
  const auto waited = std::chrono::steady_clock::now() - before;
  EXPECT_GE(waited, 100ms);
  EXPECT_LT(waited, 1s);

  ASSERT_TRUE(end.write(Nmea("GPVTG,90.0,T,,,,,5.0,K"), kSerialPace, std::chrono::steady_clock::now() + 5s));
  GpsData gps;
  SteadyClock clock;
  NmeaLine line;
  EXPECT_EQ(ReadNmeaSentence(*port, line, kNmeaHuntLimit, gps, kNmeaWantAll, clock), kNmeaVtg);
  EXPECT_EQ(gps.speed, 5.0);
}

TEST(GpsDevices, SerialNamesInNaturalOrderThenStableNames) {
  testing::TempFolder dev;
  std::filesystem::create_directories(dev / "serial/by-id");
  for (const char* name : {"ttyS10", "ttyUSB0", "ttyS2", "ttyS", "ttySx", "sda", "rfcomm0", "ttyACM1", "tty0",
                           "serial/by-id/usb-u-blox_7-if00", "serial/by-id/usb-FTDI_2-if00"}) {
    dev.write(name, "x");
  }
  const std::string d = dev.path;
  EXPECT_EQ(ListGpsDevices(d), (std::vector<std::string>{d + "/rfcomm0", d + "/ttyACM1", d + "/ttyS2", d + "/ttyS10",
                                                          d + "/ttyUSB0", d + "/serial/by-id/usb-FTDI_2-if00",
                                                          d + "/serial/by-id/usb-u-blox_7-if00"}));
  EXPECT_TRUE(ListGpsDevices(d + "/missing").empty());
}

class GpsThreadLine : public ::testing::TestWithParam<int> {};

TEST_P(GpsThreadLine, ReadsAtSerialPaceAndSurvivesAHangUp) {
  SteadyClock clock;
  GpsThread thread(clock);
  auto end = std::make_unique<PtyEnd>(true);
  ASSERT_TRUE(end->ok());
  Start(thread, Tracking(GetParam()), end->path(), kGpsViewGpsPage);
  {
    Receiver receiver(*end, Script("4807.038", "01131.000"), kSerialPace);
    ASSERT_TRUE(WaitFor([&] { return thread.data().prn[1] == 7 && thread.data().latitude != 0.0; }));
  }
  GpsData gps = thread.data();
  EXPECT_NEAR(gps.latitude, 48.1173, 1e-12);
  EXPECT_EQ(gps.fixMode, 3);
  EXPECT_EQ(gps.speed, 5.0);  // VTG follows RMC in the script
  const auto update = thread.takeObserverUpdate();
  ASSERT_TRUE(update.has_value());
  EXPECT_DOUBLE_EQ(update->latitude, 48.1173 * 0.0174532925199433);
  EXPECT_DOUBLE_EQ(update->altitudeKm, 0.12);

  // The receiver goes away in the middle of a sentence...
  end->write("$GPGGA,1015", kSerialPace, std::chrono::steady_clock::now() + 1s);
  end->hangUp();
  std::this_thread::sleep_for(300ms);
  EXPECT_TRUE(thread.running());
  // ...and comes back on a fresh line with a new position.
  end = std::make_unique<PtyEnd>(true);
  ASSERT_TRUE(end->ok());
  thread.configure(Tracking(GetParam()), MapTo(end->path()));
  {
    Receiver receiver(*end, Script("5130.000", "00007.000"), kSerialPace);
    ASSERT_TRUE(WaitFor([&] { return thread.data().latitude == 51.5; }));
  }
  const auto before = std::chrono::steady_clock::now();
  thread.stop();
  EXPECT_LT(std::chrono::steady_clock::now() - before, 1s);
  EXPECT_FALSE(thread.running());
}

INSTANTIATE_TEST_SUITE_P(Methods, GpsThreadLine, ::testing::Values(0, 1),
                         [](const auto& method) { return method.param == 0 ? "Normal" : "Alternative"; });

TEST(GpsThread, LeavesThePortAloneWhileTrackingIsOff) {
  SteadyClock clock;
  GpsThread thread(clock);
  PtyEnd end(true);
  ASSERT_TRUE(end.ok());
  GpsSettings settings = Tracking(0);
  settings.tracking = 0;
  Start(thread, settings, end.path(), kGpsViewGpsPage);
  Receiver receiver(end, Script("4807.038", "01131.000"), kSerialPace);
  std::this_thread::sleep_for(400ms);
  EXPECT_EQ(thread.cycles(), 0u);
  EXPECT_EQ(thread.data(), GpsData{});
  settings.tracking = 1;  // "Track GPS" takes effect on the next pass
  thread.configure(settings, MapTo(end.path()));
  EXPECT_TRUE(WaitFor([&] { return thread.data().latitude != 0.0; }));
}

TEST(GpsThread, ObserverOnlyFromAKnownPosition) {
  SteadyClock clock;
  GpsThread thread(clock);
  PtyEnd end(true);
  ASSERT_TRUE(end.ok());
  Start(thread, Tracking(1), end.path(), kGpsViewInfo);  // wants VTG and GGA, never GLL
  {
    Receiver gllOnly(end, Nmea("GPGLL,4916.45,N,12311.12,W,225444,A,"), kSerialPace);
    ASSERT_TRUE(WaitFor([&] { return thread.cycles() >= 3; }));
  }
  EXPECT_EQ(thread.data().latitude, 0.0);
  EXPECT_FALSE(thread.takeObserverUpdate().has_value());
  {
    // Longitude exactly 0: a position, but not one that moves the observer.
    Receiver zero(end, Nmea("GPGGA,101500.00,4807.038,N,00000.000,E,1,07,1.1,120.0,M,,,,"), kSerialPace);
    ASSERT_TRUE(WaitFor([&] { return thread.data().latitude != 0.0; }));
  }
  EXPECT_FALSE(thread.takeObserverUpdate().has_value());
}

TEST(GpsReceiver, StartUpAndPortTest) {
  SteadyClock clock;
  testing::RecordingSink sink;
  {
    GpsThread thread(clock);
    GpsSettings none;
    none.portIndex = 0;
    std::string message;
    StartGpsReceiver(thread, none, GpsPortMap{}, message);
    EXPECT_EQ(none.tracking, 0);
    EXPECT_EQ(message, "Could not open the NONE port");
    EXPECT_FALSE(thread.running());

    GpsSettings missing = Tracking(0);
    StartGpsReceiver(thread, missing, MapTo("/nonexistent/tty"), message);
    EXPECT_EQ(missing.tracking, 0);
    EXPECT_EQ(message, "Could not open the COM1: port");
    EXPECT_TRUE(thread.running());  // a port is chosen: the thread runs and idles
    EXPECT_FALSE(TestGpsPort(thread, missing, MapTo("/nonexistent/tty"), sink));
  }
  PtyEnd end;
  ASSERT_TRUE(end.ok());
  GpsThread thread(clock);
  GpsSettings settings = Tracking(1);  // the thread keeps the port open
  std::string message;
  StartGpsReceiver(thread, settings, MapTo(end.path()), message);
  EXPECT_EQ(settings.tracking, 1);
  ASSERT_TRUE(WaitFor([&] { return OpenGpsDevice(end.path()) == nullptr; }));
  EXPECT_TRUE(TestGpsPort(thread, settings, MapTo(end.path()), sink));
  EXPECT_EQ(sink.shown, (std::vector<testing::RecordingSink::Shown>{
                            {"Could not open the COM1: port", "", MessageIcon::Stop},
                            {"COM port set correctly.", "GPS", MessageIcon::Information}}));
}

}  // namespace
}  // namespace norvane
