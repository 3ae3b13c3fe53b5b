#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/elements/element_file.h"
#include "core/platform/message_sink.h"
#include "settings/memory_settings_store.h"
#include "ui/app/main_state.h"
#include "ui/app/window_commands.h"

namespace norvane::testing {

class RecordingSink : public MessageSink {
 public:
  void show(const std::string& text, const std::string& title, MessageIcon) override {
    texts.push_back(text);
    titles.push_back(title);
  }
  std::vector<std::string> texts, titles;
};

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

// A fresh folder under the system's temporary folder, removed at the end.
struct TempFolder {
  explicit TempFolder(const std::string& name)
      : path(std::filesystem::temp_directory_path() / ("norvane_gui_" + name)) {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  ~TempFolder() { std::filesystem::remove_all(path); }
  std::filesystem::path path;
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
