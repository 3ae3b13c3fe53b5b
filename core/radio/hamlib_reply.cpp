#include "core/radio/hamlib_reply.h"

#include <charconv>
#include <cmath>

#include "core/text/format.h"

namespace norvane {

namespace {

std::string_view Trimmed(std::string_view s) {
  while (!s.empty() && (s.back() == '\r' || s.back() == ' ')) s.remove_suffix(1);
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  return s;
}

bool ReadNumber(std::string_view s, double& out) {
  const auto r = std::from_chars(s.data(), s.data() + s.size(), out);
  return r.ec == std::errc() && r.ptr == s.data() + s.size() && std::isfinite(out);
}

}  // namespace

HamlibReply ParseHamlibReply(std::string_view buffer, int expectedValues) {
  HamlibReply reply;
  std::size_t pos = 0;
  while (true) {
    const std::size_t end = buffer.find('\n', pos);
    if (end == std::string_view::npos) {
      if (buffer.size() - pos > kHamlibLineMax) reply.status = ReplyStatus::Malformed;
      return reply;
    }
    if (end - pos > kHamlibLineMax) {
      reply.status = ReplyStatus::Malformed;
      return reply;
    }
    const std::string_view line = Trimmed(buffer.substr(pos, end - pos));
    pos = end + 1;
    if (line.substr(0, 5) == "RPRT ") {
      const std::string_view number = Trimmed(line.substr(5));
      const auto r = std::from_chars(number.data(), number.data() + number.size(), reply.code);
      reply.status = r.ec == std::errc() && r.ptr == number.data() + number.size() ? ReplyStatus::Report
                                                                                     : ReplyStatus::Malformed;
      reply.consumed = pos;
      return reply;
    }
    double value = 0;
    if (expectedValues <= 0 || !ReadNumber(line, value)) {
      reply.status = ReplyStatus::Malformed;
      return reply;
    }
    reply.values.push_back(value);
    if (static_cast<int>(reply.values.size()) == expectedValues) {
      reply.status = ReplyStatus::Values;
      reply.consumed = pos;
      return reply;
    }
  }
}

std::string HamlibErrorText(int code) {
  switch (-code) {
    case 1: return "invalid parameter";
    case 2: return "invalid configuration";
    case 4: return "not implemented";
    case 5: return "timed out";
    case 6: return "I/O error";
    case 8: return "protocol error";
    case 9: return "command rejected";
    case 11: return "not available";
    default: return format("error %d", code);
  }
}

}  // namespace norvane
