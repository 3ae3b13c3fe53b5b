#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace norvane {

// One option named in a usage line: "--tle FILE" gives {"tle", "FILE"}, a
// bare flag such as "[--sgp8]" gives {"sgp8", ""}.
struct UsageOption {
  std::string name;
  std::string value;
};

// The words of a usage text (one or more lines); a double-quoted stretch
// ("YYYY-MM-DD HH:MM:SS") is one word, quotes kept.
inline std::vector<std::string> UsageWords(std::string_view usage) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  for (const char c : usage) {
    if (c == '"') quoted = !quoted;
    if ((c == ' ' || c == '\n' || c == '\t') && !quoted) {
      if (!word.empty()) words.push_back(word);
      word.clear();
    } else {
      word += c;
    }
  }
  if (!word.empty()) words.push_back(word);
  return words;
}

// A word without the brackets and parentheses that group it.
inline std::string_view Unbracketed(std::string_view word) {
  while (!word.empty() && (word.front() == '[' || word.front() == '(')) word.remove_prefix(1);
  while (!word.empty() && (word.back() == ']' || word.back() == ')')) word.remove_suffix(1);
  return word;
}

// The options of a usage line in the order they first appear.
inline std::vector<UsageOption> OptionsInUsage(std::string_view usage) {
  const std::vector<std::string> words = UsageWords(usage);
  std::vector<UsageOption> options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view word = Unbracketed(words[i]);
    if (word.size() < 3 || word.substr(0, 2) != "--") continue;
    UsageOption option{std::string(word.substr(2)), ""};
    // A group closing right after the name leaves it a flag: "[--visible]".
    const char last = words[i].back();
    if (last != ']' && last != ')' && i + 1 < words.size()) {
      const std::string& next = words[i + 1];
      if (next[0] != '[' && next[0] != '(' && next[0] != '-' && next[0] != '|') {
        option.value = std::string(Unbracketed(next));
      }
    }
    bool seen = false;
    for (const UsageOption& o : options) seen = seen || o.name == option.name;
    if (!seen) options.push_back(option);
  }
  return options;
}

// The alternatives of a value made of lower-case words: "real|pause|x1" gives
// {"real", "pause", "x1"}; a placeholder such as "FILE" or "PATH|gpsd://..."
// gives nothing.
inline std::vector<std::string> ChoicesIn(std::string_view value) {
  std::vector<std::string> choices;
  std::string choice;
  for (std::size_t i = 0; i <= value.size(); ++i) {
    if (i == value.size() || value[i] == '|') {
      if (choice.empty()) return {};
      choices.push_back(choice);
      choice.clear();
      continue;
    }
    const char c = value[i];
    const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    if (!plain) return {};
    choice += c;
  }
  return choices.size() > 1 ? choices : std::vector<std::string>{};
}

}  // namespace norvane
