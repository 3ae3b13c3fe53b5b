#pragma once
#include <cstdint>

namespace norvane {

// The two marks built into the program, as 24-bit colours row by row; the
// transparency key marks their background.
constexpr std::int32_t kObserverMarkSide = 9;
constexpr std::int32_t kCurrentMarkSide = 11;
extern const std::uint32_t kObserverMark[kObserverMarkSide * kObserverMarkSide];
extern const std::uint32_t kCurrentMark[kCurrentMarkSide * kCurrentMarkSide];

}  // namespace norvane
