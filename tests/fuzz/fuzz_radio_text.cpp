// A frequency file and a daemon reply of any bytes: every entry read is
// within its limits and a reply never claims more than the buffer holds.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/radio/frequency_table.h"
#include "core/radio/hamlib_reply.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const norvane::FrequencyTable table = norvane::ParseFrequencyTable(text);
  if (table.entries.size() > norvane::kFrequencyEntriesMax) std::abort();
  for (const norvane::FrequencyEntry& e : table.entries) {
    const bool inside = e.catnr > 0 && !e.name.empty() && e.name.size() <= norvane::kFrequencyNameMax &&
                        e.mode.size() <= norvane::kFrequencyModeMax && e.downlinkMHz > 0 &&
                        e.downlinkMHz <= 1e7 && e.uplinkMHz >= 0 && e.uplinkMHz <= 1e7;
    if (!inside) std::abort();
  }
  for (int expected = 0; expected <= 2; ++expected) {
    const norvane::HamlibReply reply = norvane::ParseHamlibReply(text, expected);
    if (reply.consumed > size) std::abort();
    if (reply.status == norvane::ReplyStatus::Values && static_cast<int>(reply.values.size()) != expected) std::abort();
  }
  return 0;
}
