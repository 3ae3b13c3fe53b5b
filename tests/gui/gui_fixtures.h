#pragma once
#include <optional>
#include <string>
#include <vector>

#include "core/elements/element_file.h"
#include "settings/memory_settings_store.h"
#include "tests/common/test_support.h"
#include "ui/app/main_state.h"
#include "ui/app/window_commands.h"

namespace norvane::testing {

// A host that records what the commands asked of the window.
class FakeHost : public CommandHost {
 public:
  std::optional<std::string> chooseElementFile() override { return chosen; }
  void runDialog(Command c) override { dialogs.push_back(c); }
  void openDocument(const std::string& path) override { documents.push_back(path); }
  void closeWindow() override { ++closes; }
  std::optional<std::string> chosen;
  std::vector<int> dialogs;
  std::vector<std::string> documents;
  int closes = 0;
};

inline std::string BundledElements() { return std::string(NORVANE_DATA_DIR) + "/visual_2017-04-14.txt"; }

// A state with the bundled element file loaded and every satellite selected.
inline void LoadBundled(MainState& state) {
  RecordingSink sink;
  openElementFile(state.catalogue, sink, BundledElements());
  for (int i = 0; i < state.catalogue.satelliteCount && i < kSelectionFlags; ++i) {
    state.catalogue.selected[static_cast<std::size_t>(i)] = 1;
  }
}

}  // namespace norvane::testing
