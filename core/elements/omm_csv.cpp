#include "core/elements/omm_csv.h"

#include <optional>
#include <string>
#include <vector>

namespace norvane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Columns past this many in the header are ignored, whatever they are named.
constexpr std::size_t kMaxColumns = 1024;

// Cuts CSV text into rows of fields, one row per call.
class CsvRows {
 public:
  explicit CsvRows(std::string_view text) : text_(text) {}

  // The next row's first maxFields fields (the rest are read past); false at
  // the end of the text.
  bool next(std::vector<std::string>& fields, std::size_t maxFields) {
    fields.clear();
    if (at_ >= text_.size()) return false;
    std::string field;
    bool quoted = false;     // inside a quoted part of the field
    bool rowEnded = false;
    while (at_ < text_.size() && !rowEnded) {
      const char c = text_[at_++];
      if (quoted) {
        if (c != '"') field.push_back(c);
        else if (at_ < text_.size() && text_[at_] == '"') field.push_back('"'), ++at_;
        else quoted = false;
      } else if (c == '"') {
        quoted = true;
      } else if (c == ',') {
        if (fields.size() < maxFields) fields.push_back(std::move(field));
        field.clear();
      } else if (c == '\n' || c == '\r') {
        if (c == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
        rowEnded = true;
      } else {
        field.push_back(c);
      }
    }
    if (fields.size() < maxFields) fields.push_back(std::move(field));
    return true;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

// A row with nothing but blanks in its first field and no other field.
bool isBlankRow(const std::vector<std::string>& fields) {
  return fields.size() <= 1 && (fields.empty() || fields[0].find_first_not_of(" \t") == std::string::npos);
}

}  // namespace

void readOmmCsv(std::string_view text, const OmmRecordHandler& handler) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
  CsvRows rows(text);
  std::vector<std::string> fields;
  std::vector<std::optional<OmmField>> columns;
  while (columns.empty() && rows.next(fields, kMaxColumns)) {
    if (isBlankRow(fields)) continue;
    for (const std::string& name : fields) columns.push_back(ommFieldNamed(name));
  }
  OmmRecord record;
  while (rows.next(fields, columns.size())) {
    if (isBlankRow(fields)) continue;
    record = OmmRecord{};
    for (std::size_t i = 0; i < fields.size() && i < columns.size(); ++i) {
      if (!columns[i] || fields[i].empty()) continue;
      auto& value = record[*columns[i]];
      if (!value) value = std::move(fields[i]);  // the first of two like-named columns counts
    }
    if (!handler(record)) return;
  }
}

}  // namespace norvane
