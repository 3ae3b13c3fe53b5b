#include "settings/wide_path.h"

namespace norvane {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Decodes one UTF-8 character at text[i], advancing i; malformed input gives
// U+FFFD and consumes one byte.
char32_t nextCodePoint(std::string_view text, std::size_t& i) {
  const auto lead = static_cast<unsigned char>(text[i++]);
  if (lead < 0x80) return lead;
  int extra = 0;
  char32_t cp = 0;
  char32_t minimum = 0;
  if ((lead & 0xE0) == 0xC0) {
    extra = 1, cp = lead & 0x1Fu, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2, cp = lead & 0x0Fu, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3, cp = lead & 0x07u, minimum = 0x10000;
  } else {
    return kReplacement;
  }
  if (text.size() - i < static_cast<std::size_t>(extra)) return kReplacement;
  for (int k = 0; k < extra; ++k) {
    const auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
    if ((next & 0xC0) != 0x80) return kReplacement;
    cp = (cp << 6) | (next & 0x3Fu);
  }
  if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return kReplacement;
  i += static_cast<std::size_t>(extra);
  return cp;
}

void appendUtf8(std::string& out, char32_t cp) {
  auto byte = [&out](char32_t b) { out.push_back(static_cast<char>(static_cast<unsigned char>(b))); };
  if (cp < 0x80) {
    byte(cp);
  } else if (cp < 0x800) {
    byte(0xC0 | (cp >> 6)), byte(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    byte(0xE0 | (cp >> 12)), byte(0x80 | ((cp >> 6) & 0x3F)), byte(0x80 | (cp & 0x3F));
  } else {
    byte(0xF0 | (cp >> 18)), byte(0x80 | ((cp >> 12) & 0x3F));
    byte(0x80 | ((cp >> 6) & 0x3F)), byte(0x80 | (cp & 0x3F));
  }
}

}  // namespace

std::array<std::uint8_t, kWidePathBytes> encodeWidePath(std::string_view utf8) {
  std::array<std::uint8_t, kWidePathBytes> out{};
  std::size_t unit = 0;
  auto put = [&out, &unit](char32_t u) {
    out[2 * unit] = static_cast<std::uint8_t>(u & 0xFF);
    out[2 * unit + 1] = static_cast<std::uint8_t>((u >> 8) & 0xFF);
    ++unit;
  };
  std::size_t i = 0;
  while (i < utf8.size()) {
    const char32_t cp = nextCodePoint(utf8, i);
    if (cp == 0) break;  // an embedded zero ends the path, as the terminator would
    const std::size_t units = cp >= 0x10000 ? 2 : 1;
    if (unit + units > kWidePathUnits - 1) break;  // keep room for the terminator
    if (units == 1) {
      put(cp);
    } else {
      put(0xD800 + ((cp - 0x10000) >> 10));
      put(0xDC00 + ((cp - 0x10000) & 0x3FF));
    }
  }
  return out;
}

std::string decodeWidePath(const std::uint8_t* bytes, std::size_t size) {
  std::string out;
  const std::size_t units = size / 2;
  auto unitAt = [bytes](std::size_t k) -> char32_t {
    return static_cast<char32_t>(bytes[2 * k] | (bytes[2 * k + 1] << 8));
  };
  for (std::size_t k = 0; k < units; ++k) {
    const char32_t u = unitAt(k);
    if (u == 0) break;
    if (u >= 0xD800 && u <= 0xDBFF && k + 1 < units) {
      const char32_t low = unitAt(k + 1);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        appendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00));
        ++k;
        continue;
      }
    }
    appendUtf8(out, (u >= 0xD800 && u <= 0xDFFF) ? kReplacement : u);
  }
  return out;
}

}  // namespace norvane
