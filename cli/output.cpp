#include "cli/output.h"

#include <cmath>

namespace norvane::cli {

namespace {
std::string formatNumber(const char* format, double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, value);
  return buffer;
}
}  // namespace

std::string jsonString(std::string_view text) {
  std::string out = "\"";
  for (const char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += ch;
    } else if (c < 0x20 || c >= 0x7f) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else {
      out += ch;
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
