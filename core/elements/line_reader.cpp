#include "core/elements/line_reader.h"

#include <cstring>

namespace norvane {

namespace {
constexpr char kCarriageReturn = 13;
constexpr char kLineFeed = 10;

// The byte after the buffer counts as a zero, as in a file buffer allocated one longer.
char byteAt(const char* buffer, std::uint64_t p, std::uint32_t length) {
  return p < length ? buffer[p] : '\0';
}
}  // namespace

bool readLine(LineReader& reader, const char* buffer, char* line,
              std::uint32_t capacity, std::uint32_t length) {
  if (length == kRewindLength) {
    reader.cursor = 0;
    return false;
  }
  if (capacity > 0) std::memset(line, 0, capacity);

  std::uint64_t p = reader.cursor;
  std::uint32_t k = 0;
  while (p < length) {
    if (buffer[p] == kCarriageReturn) break;
    if (byteAt(buffer, p + 1, length) == kLineFeed) break;
    if (k >= capacity) break;  // nothing fits in a zero-capacity line
    line[k++] = buffer[p];
    if (k + 1 >= capacity) break;  // k >= capacity - 1, the cursor stays on this byte
    ++p;
  }
  if (capacity > 0) line[k < capacity ? k : capacity - 1] = '\0';

  const std::uint64_t next = p + 2;
  if (next < std::uint64_t{length} + 1) {
    reader.cursor = static_cast<std::uint32_t>(next);
    return true;
  }
  reader.cursor = 0;
  return false;
}

}  // namespace norvane
