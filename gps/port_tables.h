#pragma once
#include <array>
#include <string>

namespace norvane {

// Ports offered to the user; index 0 means no port.
inline constexpr std::array<const char*, 10> kGpsPortTable = {
    "NONE", "COM1:", "COM2:", "COM3:", "COM4:", "COM5:", "COM6:", "COM7:", "COM8:", "COM9:"};

struct GpsBaud {
  const char* text;
  int rate;  // bits per second
};

// Line speeds; only the first kGpsBaudChoices are ever offered, so 115200
// cannot be chosen.
inline constexpr std::array<GpsBaud, 11> kGpsBaudTable = {{{"600", 600},
                                                           {"1200", 1200},
                                                           {"2400", 2400},
                                                           {"4800", 4800},
                                                           {"9600", 9600},
                                                           {"14400", 14400},
                                                           {"19200", 19200},
                                                           {"38400", 38400},
                                                           {"56000", 56000},
                                                           {"57600", 57600},
                                                           {"115200", 115200}}};
inline constexpr int kGpsBaudChoices = 10;

// Port name of a port index ("NONE" for 0), or "" outside the table.
const char* GpsPortName(int portIndex);
// Rate of a baud index, or 0 outside the table.
int GpsBaudRate(int baudIndex);

// Where each "COMn:" port really is: a device path, or "gpsd://HOST:PORT" for
// raw NMEA from a running gpsd. Entry 0 belongs to "NONE" and stays empty.
struct GpsPortMap {
  std::array<std::string, 10> devices = {"",           "/dev/ttyUSB0", "/dev/ttyUSB1",
                                         "/dev/ttyACM0", "/dev/ttyACM1", "/dev/ttyS0",
                                         "/dev/ttyS1",   "/dev/ttyS2",   "/dev/ttyS3",
                                         "/dev/ttyS4"};
};

// Device of a port index, or "" for "NONE" and indices outside the table.
std::string GpsDeviceOf(const GpsPortMap& map, int portIndex);

// The map as text, one device per line for COM1: to COM9:, and back; lines
// missing from the text keep their defaults.
std::string GpsPortMapText(const GpsPortMap& map);
GpsPortMap GpsPortMapFromText(const std::string& text);

}  // namespace norvane
