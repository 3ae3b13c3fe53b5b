#include "cli/output.h"

#include <cmath>

namespace norvane::cli {

namespace {
std::string formatNumber(const char* format, double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, value);
  return buffer;
}

// Length of the well-formed UTF-8 sequence at text[i], or 0 when the bytes
// there are not one (overlong forms, surrogates and values past U+10FFFF
// included).
std::size_t utf8SequenceAt(std::string_view text, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(i);
  std::size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;  // range of the second byte
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (i + length > text.size()) return 0;
  if (byte(i + 1) < low || byte(i + 1) > high) return 0;
  for (std::size_t k = 2; k < length; ++k) {
    if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return 0;
  }
  return length;
}

}  // namespace

std::string jsonString(std::string_view text) {
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += text[i];
    } else if (c < 0x20 || c == 0x7f) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else if (c < 0x80) {
      out += text[i];
    } else if (const std::size_t n = utf8SequenceAt(text, i); n != 0) {
      out.append(text.substr(i, n));  // JSON is UTF-8: the sequence goes out as it is
      i += n - 1;
    } else {
      // A byte of 8-bit text (an element file's name line) is read as Latin-1.
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    }
  }
  return out + "\"";
}

Record& Record::add(std::string key, double value) {
  // JSON has no NaN or infinity: such values are null.
  std::string json = std::isfinite(value) ? formatNumber("%.17g", value) : "null";
  fields_.push_back({std::move(key), std::move(json), formatNumber("%.12g", value)});
  return *this;
}

Record& Record::add(std::string key, const std::vector<std::string>& texts) {
  std::string json = "[";
  std::string text;
  for (const std::string& t : texts) {
    if (json.size() > 1) {
      json += ",";
      text += "; ";
    }
    json += jsonString(t);
    text += t;
  }
  fields_.push_back({std::move(key), json + "]", text});
  return *this;
}

Record& Record::add(std::string key, int value) {
  std::string text = std::to_string(value);
  fields_.push_back({std::move(key), text, text});
  return *this;
}

Record& Record::addBool(std::string key, bool value) {
  const std::string text = value ? "true" : "false";
  fields_.push_back({std::move(key), text, text});
  return *this;
}

Record& Record::add(std::string key, std::span<const double> values) {
  std::string json = "[";
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) {
      json += ",";
      text += " ";
    }
    json += std::isfinite(values[i]) ? formatNumber("%.17g", values[i]) : "null";
    text += formatNumber("%.12g", values[i]);
  }
  fields_.push_back({std::move(key), json + "]", text});
  return *this;
}

Record& Record::add(std::string key, std::string_view text) {
  fields_.push_back({std::move(key), jsonString(text), std::string(text)});
  return *this;
}

void Record::print(std::FILE* out, bool json) const {
  if (json) {
    std::string line = "{";
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (i > 0) line += ",";
      line += jsonString(fields_[i].key) + ":" + fields_[i].json;
    }
    line += "}\n";
    std::fputs(line.c_str(), out);
  } else {
    std::size_t width = 0;
    for (const Field& f : fields_) width = std::max(width, f.key.size());
    for (const Field& f : fields_) {
      std::fprintf(out, "%-*s  %s\n", static_cast<int>(width), f.key.c_str(), f.text.c_str());
    }
    std::fputs("\n", out);
  }
  std::fflush(out);
}

}  // namespace norvane::cli
