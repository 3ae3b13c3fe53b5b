#pragma once
#include <cstdint>

namespace norvane {

// Passing this length (with capacity 0) rewinds the reader.
inline constexpr std::uint32_t kRewindLength = 0xFFFFFFFFu;

// Cursor of the line reader; it lives between calls, one per file read.
struct LineReader {
  std::uint32_t cursor = 0;
};

// Copies the next line of buffer[0, length) into line (capacity bytes, zero
// terminated) and moves the cursor past the line end. A byte following a line
// ending in a line feed drops the byte before it; a line longer than the buffer
// is cut and the byte after the cut skipped. Returns false, and rewinds, once
// the cursor has passed length: the last line comes with a false result.
// Never reads buffer[length] or beyond; never writes past line[capacity - 1].
bool readLine(LineReader& reader, const char* buffer, char* line,
              std::uint32_t capacity, std::uint32_t length);

}  // namespace norvane
