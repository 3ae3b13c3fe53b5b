#pragma once
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace norvane::cli {

// One result record: keys in insertion order, printed as one JSON object per
// line (numbers with %.17g) or as aligned "key  value" text.
class Record {
 public:
  Record& add(std::string key, double value);
  Record& add(std::string key, int value);
  Record& add(std::string key, std::string_view text);
  Record& add(std::string key, const char* text) { return add(std::move(key), std::string_view(text)); }
  // true or false, in JSON and in text alike.
  Record& addBool(std::string key, bool value);
  // A list of numbers: a JSON array, or the numbers separated by blanks.
  Record& add(std::string key, std::span<const double> values);
  // A list of texts: a JSON array of strings, or the texts separated by "; ".
  Record& add(std::string key, const std::vector<std::string>& texts);

  // Writes the record and flushes the stream.
  void print(std::FILE* out, bool json) const;

 private:
  struct Field {
    std::string key;
    std::string json;
    std::string text;
  };
  std::vector<Field> fields_;
};

// A string as a JSON literal. Well-formed UTF-8 passes as it is; control
// characters, and bytes that are not UTF-8 (read as Latin-1), become \u00XX.
std::string jsonString(std::string_view text);

}  // namespace norvane::cli
