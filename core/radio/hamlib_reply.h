#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvane {

// The answer of a rigctld or rotctld daemon to one command in its plain text
// protocol: a "RPRT n" line (0 done, negative an error) or, for a query, its
// values one per line.
enum class ReplyStatus { Incomplete, Report, Values, Malformed };

struct HamlibReply {
  ReplyStatus status = ReplyStatus::Incomplete;
  int code = 0;                // the RPRT code, when status is Report
  std::vector<double> values;  // when status is Values
  std::size_t consumed = 0;    // bytes of the buffer that made the reply
};

inline constexpr std::size_t kHamlibLineMax = 256;

// Reads one reply from the start of buffer. A query expects expectedValues
// numeric lines; a setting command (expectedValues 0) only a RPRT line. A line
// longer than kHamlibLineMax or a value that is not a number is Malformed.
HamlibReply ParseHamlibReply(std::string_view buffer, int expectedValues);

// A short text for a negative RPRT code.
std::string HamlibErrorText(int code);

}  // namespace norvane
