#pragma once
#include <memory>
#include <string>

#include "core/elements/element_file.h"
#include "tests/common/test_support.h"

namespace norvane::test {

// A bundled element file from data/, loaded as the program loads it.
inline std::unique_ptr<Catalogue> bundled(const char* name) {
  auto catalogue = std::make_unique<Catalogue>();
  testing::QuietSink sink;
  openElementFile(*catalogue, sink, std::string(NORVANE_DATA_DIR) + "/" + name);
  return catalogue;
}

inline constexpr int kIssSlot = 106;           // in visual_2017-04-14.txt
inline constexpr double kVisualEpoch = 2457858.0;  // 2017-04-14 12:00 UTC

}  // namespace norvane::test
