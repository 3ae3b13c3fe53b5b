#include "gps/line_speed.h"

// The kernel's own terminal structure: with BOTHER it takes the rate as a
// number. It cannot share a file with <termios.h>, whose structure has the
// same name, so this file keeps to the ioctl interface.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace norvane {
namespace {

// The speed code of a standard rate, so that tools that know only those codes
// read the line right; BOTHER for any other rate.
tcflag_t SpeedCode(int rate) {
  struct Code {
    int rate;
    tcflag_t code;
  };
  static constexpr Code kCodes[] = {{600, B600},     {1200, B1200},   {2400, B2400},   {4800, B4800},
                                    {9600, B9600},   {19200, B19200}, {38400, B38400}, {57600, B57600},
                                    {115200, B115200}, {230400, B230400}};
  for (const Code& c : kCodes) {
    if (c.rate == rate) return c.code;
  }
  return BOTHER;
}

}  // namespace

bool SetLineSpeed(int fd, int rate) {
  if (rate <= 0) return false;
  termios2 t{};
  if (::ioctl(fd, TCGETS2, &t) != 0) return false;
  t.c_cflag &= ~static_cast<tcflag_t>(CBAUD | (CBAUD << IBSHIFT));
  const tcflag_t code = SpeedCode(rate);
  t.c_cflag |= code | (code << IBSHIFT);
  t.c_ispeed = static_cast<speed_t>(rate);
  t.c_ospeed = static_cast<speed_t>(rate);
  if (::ioctl(fd, TCSETS2, &t) != 0) return false;
  // The driver may round to what the hardware can do; far off counts as refused.
  termios2 back{};
  if (::ioctl(fd, TCGETS2, &back) != 0) return false;
  const long got = static_cast<long>(back.c_ospeed);
  return got > 0 && got * 100 >= static_cast<long>(rate) * 97 && got * 100 <= static_cast<long>(rate) * 103;
}

int LineSpeed(int fd) {
  termios2 t{};
  if (::ioctl(fd, TCGETS2, &t) != 0) return -1;
  return static_cast<int>(t.c_ospeed);
}

}  // namespace norvane
