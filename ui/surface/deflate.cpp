#include "ui/surface/deflate.h"

#include <algorithm>
#include <array>
#include <utility>

namespace norvane {

namespace {

constexpr std::size_t kWindow = 32768;
constexpr std::size_t kMinMatch = 3;
constexpr std::size_t kMaxMatch = 258;
constexpr int kMaxChain = 32;
constexpr std::size_t kHashBits = 15;

constexpr std::array<std::uint16_t, 29> kLengthBase = {
    3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15, 17, 19, 23, 27,
    31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr std::array<std::uint8_t, 29> kLengthExtra = {
    0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<std::uint16_t, 30> kDistanceBase = {
    1, 2, 3, 4, 5, 7, 9, 13, 17, 25, 33, 49, 65, 97, 129,
    193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr std::array<std::uint8_t, 30> kDistanceExtra = {
    0, 0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// Bits go out least significant first; Huffman codes are sent most
// significant bit first, so they are reversed on the way in.
class BitWriter {
 public:
  void bits(std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) put(value >> i & 1u);
  }
  void code(std::uint32_t value, int count) {
    for (int i = count - 1; i >= 0; --i) put(value >> i & 1u);
  }
  std::vector<std::uint8_t> finish() {
    if (filled_ > 0) out_.push_back(current_);
    return std::move(out_);
  }

 private:
  void put(std::uint32_t bit) {
    current_ = static_cast<std::uint8_t>(current_ | bit << filled_);
    if (++filled_ == 8) {
      out_.push_back(current_);
      current_ = 0;
      filled_ = 0;
    }
  }
  std::vector<std::uint8_t> out_;
  std::uint8_t current_ = 0;
  int filled_ = 0;
};

// The fixed literal/length code of symbol 0-287.
void Symbol(BitWriter& out, std::uint32_t symbol) {
  if (symbol < 144) {
    out.code(0x30 + symbol, 8);
  } else if (symbol < 256) {
    out.code(0x190 + symbol - 144, 9);
  } else if (symbol < 280) {
    out.code(symbol - 256, 7);
  } else {
    out.code(0xC0 + symbol - 280, 8);
  }
}

void Match(BitWriter& out, std::size_t length, std::size_t distance) {
  std::size_t l = kLengthBase.size() - 1;
  while (kLengthBase[l] > length) --l;
  Symbol(out, static_cast<std::uint32_t>(257 + l));
  out.bits(static_cast<std::uint32_t>(length - kLengthBase[l]), kLengthExtra[l]);
  std::size_t d = kDistanceBase.size() - 1;
  while (kDistanceBase[d] > distance) --d;
  out.code(static_cast<std::uint32_t>(d), 5);
  out.bits(static_cast<std::uint32_t>(distance - kDistanceBase[d]), kDistanceExtra[d]);
}

std::size_t HashAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  const std::uint32_t v = std::uint32_t{bytes[at]} << 16 | std::uint32_t{bytes[at + 1]} << 8 |
                          bytes[at + 2];
  return (v * 2654435761u) >> (32 - kHashBits);
}

// Remembers where each 3-byte prefix was last seen, chained backwards.
class MatchFinder {
 public:
  explicit MatchFinder(std::span<const std::uint8_t> bytes)
      : bytes_(bytes), head_(std::size_t{1} << kHashBits, kNone), previous_(kWindow, kNone) {}

  void insert(std::size_t at) {
    if (at + kMinMatch > bytes_.size()) return;
    const std::size_t hash = HashAt(bytes_, at);
    previous_[at % kWindow] = head_[hash];
    head_[hash] = at;
  }

  // Longest earlier match for the bytes at `at`; length 0 when none.
  std::size_t longest(std::size_t at, std::size_t& distance) const {
    if (at + kMinMatch > bytes_.size()) return 0;
    const std::size_t limit = std::min(kMaxMatch, bytes_.size() - at);
    std::size_t best = 0;
    std::size_t candidate = head_[HashAt(bytes_, at)];
    for (int chain = 0; chain < kMaxChain && candidate != kNone; ++chain) {
      if (at - candidate > kWindow - 1) break;
      std::size_t length = 0;
      while (length < limit && bytes_[candidate + length] == bytes_[at + length]) ++length;
      if (length > best) {
        best = length;
        distance = at - candidate;
        if (length == limit) break;
      }
      const std::size_t next = previous_[candidate % kWindow];
      if (next == kNone || next >= candidate) break;
      candidate = next;
    }
    return best >= kMinMatch ? best : 0;
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::span<const std::uint8_t> bytes_;
  std::vector<std::size_t> head_;
  std::vector<std::size_t> previous_;
};

}  // namespace

std::uint32_t Adler32(std::span<const std::uint8_t> bytes) {
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const std::uint8_t byte : bytes) {
    a = (a + byte) % 65521u;
    b = (b + a) % 65521u;
  }
  return b << 16 | a;
}

std::vector<std::uint8_t> Deflate(std::span<const std::uint8_t> bytes) {
  BitWriter out;
  out.bits(1, 1);  // final block
  out.bits(1, 2);  // fixed Huffman codes
  MatchFinder finder(bytes);
  std::size_t at = 0;
  while (at < bytes.size()) {
    std::size_t distance = 0;
    const std::size_t length = finder.longest(at, distance);
    if (length == 0) {
      Symbol(out, bytes[at]);
      finder.insert(at++);
      continue;
    }
    Match(out, length, distance);
    for (std::size_t end = at + length; at < end; ++at) finder.insert(at);
  }
  Symbol(out, 256);  // end of block
  return out.finish();
}

std::vector<std::uint8_t> ZlibCompress(std::span<const std::uint8_t> bytes) {
  std::vector<std::uint8_t> out = {0x78, 0x01};  // 32 KiB window, no dictionary
  const std::vector<std::uint8_t> body = Deflate(bytes);
  out.insert(out.end(), body.begin(), body.end());
  const std::uint32_t adler = Adler32(bytes);
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(adler >> shift));
  return out;
}

}  // namespace norvane
