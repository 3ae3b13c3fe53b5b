#include "core/elements/omm_json.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace norvane {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Collects records from the parser's events. Depth counts open arrays and
// objects; a record is an object at depth 2 inside the top-level array, or
// the top-level object itself at depth 1.
class RecordCollector : public nlohmann::json_sax<Json> {
 public:
  explicit RecordCollector(const OmmRecordHandler& handler) : handler_(handler) {}

  bool insideRecord() const { return recordDepth_ != 0; }

  bool null() override { return scalar(nullptr); }
  bool boolean(bool) override { return scalar(nullptr); }
  bool number_integer(number_integer_t value) override {
    std::string text = std::to_string(value);
    return scalar(&text);
  }
  bool number_unsigned(number_unsigned_t value) override {
    std::string text = std::to_string(value);
    return scalar(&text);
  }
  // The number's own text, so that it converts exactly as the same digits in
  // a string would. The parser writes the C library's decimal point into it,
  // which a locale may have made a comma: any such character becomes '.'.
  bool number_float(number_float_t, const string_t& text) override {
    std::string copy = text;
    for (char& c : copy) {
      if ((c < '0' || c > '9') && c != '-' && c != '+' && c != 'e' && c != 'E') c = '.';
    }
    return scalar(&copy);
  }
  bool string(string_t& value) override { return scalar(&value); }
  bool binary(binary_t&) override { return scalar(nullptr); }

  bool start_object(std::size_t) override {
    ++depth_;
    if (recordDepth_ == 0 && (depth_ == 1 || (depth_ == 2 && topIsArray_))) {
      recordDepth_ = depth_;
      record_ = OmmRecord{};
      field_.reset();
    } else {
      nested();
    }
    return true;
  }
  bool key(string_t& name) override {
    if (depth_ == recordDepth_) field_ = ommFieldNamed(name);
    return true;
  }
  bool end_object() override {
    const bool ended = depth_ == recordDepth_;
    --depth_;
    if (!ended) return true;
    recordDepth_ = 0;
    return handler_(record_);
  }
  bool start_array(std::size_t) override {
    ++depth_;
    if (depth_ == 1) topIsArray_ = true;
    else nested();
    return true;
  }
  bool end_array() override {
    --depth_;
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }

 private:
  // A value directly under a record's key sets that field (the last of two
  // like-named keys counts); values anywhere else are not record fields.
  // A null, a boolean or an empty string leaves it absent.
  bool scalar(std::string* value) {
    if (depth_ == recordDepth_ && field_) {
      auto& slot = record_[*field_];
      if (value != nullptr && !value->empty()) slot = std::move(*value);
      else slot.reset();
      field_.reset();
    }
    return true;
  }
  // An object or array opened under a record's key leaves that field absent.
  void nested() {
    if (depth_ == recordDepth_ + 1 && field_) {
      record_[*field_].reset();
      field_.reset();
    }
  }

  const OmmRecordHandler& handler_;
  OmmRecord record_;
  std::optional<OmmField> field_;
  int depth_ = 0;
  int recordDepth_ = 0;
  bool topIsArray_ = false;
};

}  // namespace

bool readOmmJson(std::string_view text, const OmmRecordHandler& handler) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
  RecordCollector collector(handler);
  try {
    Json::sax_parse(text.begin(), text.end(), &collector);
  } catch (...) {  // the parser reports errors through parse_error; this is only a guard
  }
  return collector.insideRecord();
}

}  // namespace norvane
