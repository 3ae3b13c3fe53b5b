#include "core/platform/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace norvane {

namespace {
bool writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}
}  // namespace

bool writeFileAtomically(const std::string& path, std::string_view bytes) {
  std::string temp = path + ".XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  const bool written = writeAll(fd, bytes) && ::fsync(fd) == 0;
  const bool closed = ::close(fd) == 0;
  if (written && closed && std::rename(temp.c_str(), path.c_str()) == 0) return true;
  ::unlink(temp.c_str());
  return false;
}

}  // namespace norvane
