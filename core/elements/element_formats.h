#pragma once
#include <cstddef>
#include <string_view>

namespace norvane {

// The three ways element sets arrive: two- or three-line element text, and the
// Orbit Mean-Elements Message as CSV (a header line naming the columns) or as
// a JSON array of objects.
enum class ElementFormat { Tle, Csv, Json };

// At most this many bytes of OMM text (CSV or JSON) are read; element text
// keeps its own, smaller limit.
inline constexpr std::size_t kMaxOmmBytes = std::size_t{4} * 1024 * 1024;

// The format of a text, from its content: JSON when the first character after
// an optional UTF-8 byte-order mark and white space is '[' or '{'; CSV when
// the first line names the OMM columns NORAD_CAT_ID or OBJECT_NAME; element
// text otherwise.
ElementFormat detectElementFormat(std::string_view text);

// "tle", "csv" or "json".
const char* elementFormatName(ElementFormat format);

}  // namespace norvane
