#include "core/radio/frequency_table.h"

#include <array>
#include <charconv>
#include <cmath>

namespace norvane {

namespace {

constexpr double kMaxMHz = 1e7;  // the same ceiling as the settings' frequencies

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Splits a line into at most N + 1 words; returns how many were found.
template <std::size_t N>
std::size_t Words(std::string_view line, std::array<std::string_view, N>& words) {
  std::size_t count = 0;
  std::size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && IsBlank(line[i])) ++i;
    if (i >= line.size()) break;
    const std::size_t start = i;
    while (i < line.size() && !IsBlank(line[i])) ++i;
    if (count == N) return N + 1;
    words[count++] = line.substr(start, i - start);
  }
  return count;
}

bool ReadInt(std::string_view word, int& out) {
  const auto r = std::from_chars(word.data(), word.data() + word.size(), out);
  return r.ec == std::errc() && r.ptr == word.data() + word.size();
}

bool ReadMHz(std::string_view word, double& out, bool allowNone) {
  if (allowNone && word == "-") {
    out = 0;
    return true;
  }
  const auto r = std::from_chars(word.data(), word.data() + word.size(), out);
  return r.ec == std::errc() && r.ptr == word.data() + word.size() && std::isfinite(out) && out > 0 &&
         out <= kMaxMHz;
}

bool ReadLine(std::string_view line, FrequencyEntry& entry) {
  std::array<std::string_view, 6> w;
  if (Words(line, w) != w.size()) return false;
  if (!ReadInt(w[0], entry.catnr) || entry.catnr <= 0) return false;
  if (w[1].size() > kFrequencyNameMax || w[4].size() > kFrequencyModeMax) return false;
  if (!ReadMHz(w[2], entry.downlinkMHz, false) || !ReadMHz(w[3], entry.uplinkMHz, true)) return false;
  if (w[5] != "0" && w[5] != "1") return false;
  entry.name = std::string(w[1]);
  entry.mode = std::string(w[4]);
  entry.inverting = w[5] == "1";
  return true;
}

}  // namespace

FrequencyTable ParseFrequencyTable(std::string_view text) {
  FrequencyTable table;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    if (const std::size_t hash = line.find('#'); hash != std::string_view::npos) line = line.substr(0, hash);
    std::size_t first = 0;
    while (first < line.size() && IsBlank(line[first])) ++first;
    if (first == line.size()) continue;
    FrequencyEntry entry;
    if (line.size() > kFrequencyLineMax || table.entries.size() >= kFrequencyEntriesMax || !ReadLine(line, entry)) {
      ++table.skippedLines;
      continue;
    }
    table.entries.push_back(std::move(entry));
  }
  return table;
}

const FrequencyEntry* FindFrequencies(const FrequencyTable& table, int catnr) {
  for (const FrequencyEntry& e : table.entries) {
    if (e.catnr == catnr) return &e;
  }
  return nullptr;
}

Transponder TransponderFor(const FrequencyEntry* entry, double downlinkMHz, double uplinkMHz) {
  if (entry != nullptr) return {entry->downlinkMHz * 1e6, entry->uplinkMHz * 1e6, entry->inverting};
  return {downlinkMHz * 1e6, uplinkMHz * 1e6, false};
}

}  // namespace norvane
