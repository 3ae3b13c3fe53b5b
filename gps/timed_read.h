#pragma once
#include <cstddef>

namespace norvane {

// Waits up to timeoutMs for input on fd, then reads at most size bytes of it.
// Returns the bytes read, 0 on a time-out or error; sets broken when the
// other end has gone (end of file, or an error other than "try again").
std::size_t TimedRead(int fd, void* buffer, std::size_t size, int timeoutMs, bool& broken);

}  // namespace norvane
