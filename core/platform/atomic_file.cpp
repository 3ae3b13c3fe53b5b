#include "core/platform/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace norvane {

namespace {

// Creates a fresh temporary file next to path; -1 when the folder takes none.
int createBeside(const std::string& path, std::string& tempPath) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    char suffix[48];
    std::snprintf(suffix, sizeof suffix, ".part-%ld-%d", static_cast<long>(getpid()), attempt);
    tempPath = path + suffix;
    const int fd = ::open(tempPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

bool writeAll(int fd, std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

FileWrite replaceFile(const std::string& path, std::string_view bytes) {
  std::string tempPath;
  const int fd = createBeside(path, tempPath);
  if (fd < 0) return FileWrite::CannotOpen;
  bool ok = writeAll(fd, bytes) && ::fsync(fd) == 0;
  ok = (::close(fd) == 0) && ok;
  if (ok && std::rename(tempPath.c_str(), path.c_str()) == 0) return FileWrite::Written;
  ::unlink(tempPath.c_str());
  return FileWrite::WriteFailed;
}

}  // namespace norvane
