#include "settings/settings_ini.h"

#include <optional>

namespace norvane {
namespace {

constexpr std::string_view kSection = "Software";
constexpr std::string_view kKeyPrefix = "Software/Norvane/";
constexpr std::string_view kBytesOpen = "@ByteArray(";

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '\r')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

int DigitValue(char c, int base) {
  int v = 99;
  if (c >= '0' && c <= '9') v = c - '0';
  else if (c >= 'a' && c <= 'f') v = c - 'a' + 10;
  else if (c >= 'A' && c <= 'F') v = c - 'A' + 10;
  return v < base ? v : -1;
}

// A number of escape digits ("\x4f", "\012"): as many as follow, kept to a byte.
char EscapedNumber(std::string_view text, std::size_t& i, int base) {
  unsigned value = 0;
  while (i < text.size() && DigitValue(text[i], base) >= 0) {
    value = (value * static_cast<unsigned>(base) + static_cast<unsigned>(DigitValue(text[i], base))) & 0xFFFFu;
    ++i;
  }
  return static_cast<char>(value & 0xFFu);
}

char SimpleEscape(char c) {
  switch (c) {
    case 'a': return '\a';
    case 'b': return '\b';
    case 'f': return '\f';
    case 'n': return '\n';
    case 'r': return '\r';
    case 't': return '\t';
    case 'v': return '\v';
    default: return c;  // '"', '\'', '?', '\\' and anything unknown stand for themselves
  }
}

// The characters of a value with its quotes and escapes undone; nothing for a
// list (an unquoted comma) or a value cut off after a backslash.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string out;
  bool quoted = false;
  std::size_t i = 0;
  while (i < text.size()) {
    const char c = text[i++];
    const bool list = c == ',' && !quoted;
    const bool cutOff = c == '\\' && i == text.size();
    if (list || cutOff) return std::nullopt;
    if (c == '"') {
      quoted = !quoted;
    } else if (c != '\\') {
      out.push_back(c);
    } else if (text[i] == 'x') {
      ++i;
      out.push_back(EscapedNumber(text, i, 16));
    } else if (DigitValue(text[i], 8) >= 0) {
      out.push_back(EscapedNumber(text, i, 8));
    } else {
      out.push_back(SimpleEscape(text[i++]));
    }
  }
  return out;
}

// The bytes of a "@ByteArray(...)" value.
std::optional<SettingBytes> BytesOf(std::string_view value) {
  const std::optional<std::string> text = Unescaped(value);
  if (!text || text->size() < kBytesOpen.size() + 1 || text->compare(0, kBytesOpen.size(), kBytesOpen) != 0 ||
      text->back() != ')') {
    return std::nullopt;
  }
  return SettingBytes(text->begin() + static_cast<std::ptrdiff_t>(kBytesOpen.size()), text->end() - 1);
}

bool IsHexDigit(char c) { return DigitValue(c, 16) >= 0; }

void AppendEscaped(std::string& out, const SettingBytes& bytes) {
  static constexpr char kHex[] = "0123456789abcdef";
  bool afterNumber = false;  // a digit right after "\x4" or "\0" would join the number
  for (const std::uint8_t b : bytes) {
    const char c = static_cast<char>(b);
    const bool plain = b >= 0x20 && b < 0x7F && c != '\\' && c != '"' && c != ';' && c != ',' && c != '=';
    if (b == 0) {
      out += "\\0";
      afterNumber = true;
    } else if (plain && !(afterNumber && IsHexDigit(c))) {
      out.push_back(c);
      afterNumber = false;
    } else {
      out += "\\x";
      if (b >= 0x10) out.push_back(kHex[b >> 4]);
      out.push_back(kHex[b & 0xF]);
      afterNumber = true;
    }
  }
}

}  // namespace

StoredValues ParseSettingsIni(std::string_view text) {
  StoredValues values;
  std::string section;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = Trimmed(text.substr(start, end - start));
    start = end + 1;
    if (line.empty() || line.front() == ';' || line.front() == '#') continue;
    if (line.front() == '[') {
      // A header that lost its closing bracket still names its section.
      std::string_view name = line.substr(1);
      if (!name.empty() && name.back() == ']') name.remove_suffix(1);
      section = std::string(Trimmed(name));
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    std::string key = std::string(Trimmed(line.substr(0, equals)));
    if (!section.empty() && section != "General") key.insert(0, section + "/");
    for (char& c : key) {
      if (c == '\\') c = '/';
    }
    if (key.size() <= kKeyPrefix.size() || key.compare(0, kKeyPrefix.size(), kKeyPrefix) != 0) continue;
    const std::string name = key.substr(kKeyPrefix.size());
    if (name.find('/') != std::string::npos) continue;
    if (std::optional<SettingBytes> bytes = BytesOf(Trimmed(line.substr(equals + 1)))) {
      values[name] = std::move(*bytes);
    }
  }
  return values;
}

std::string SettingsIniText(const StoredValues& values) {
  std::string out = "[" + std::string(kSection) + "]\n";
  for (const auto& [name, bytes] : values) {
    out += "Norvane\\" + name + "=" + std::string(kBytesOpen);
    AppendEscaped(out, bytes);
    out += ")\n";
  }
  return out;
}

}  // namespace norvane
