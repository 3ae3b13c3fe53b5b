#pragma once
#include <cstdint>
#include <span>
#include <vector>

namespace norvane {

// Adler-32 checksum of bytes, as the zlib format ends with it.
std::uint32_t Adler32(std::span<const std::uint8_t> bytes);

// One final deflate block with the fixed Huffman codes and greedy LZ77
// matches within 32 KiB; deterministic, so equal input gives equal bytes.
std::vector<std::uint8_t> Deflate(std::span<const std::uint8_t> bytes);

// Deflate wrapped in the zlib header and the Adler-32 trailer.
std::vector<std::uint8_t> ZlibCompress(std::span<const std::uint8_t> bytes);

}  // namespace norvane
