#include "ui/app/element_file_commands.h"

#include <cstdio>
#include <memory>

#include "core/elements/element_file.h"
#include "core/elements/element_text.h"
#include "core/elements/file_name_modes.h"
#include "core/elements/selection_file.h"
#include "settings/settings_io.h"

namespace norvane {
namespace {

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};

// The file's element text (see readElementBytes), with the two failure
// messages of the "Open" command; an unopened file reads nothing and so fails
// its read too.
std::string readCapped(const std::string& path, MessageSink& messages) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) messages.show("I can't open the file!", "", MessageIcon::Stop);
  std::string buffer;
  if (!file || !readElementBytes(file.get(), buffer)) messages.show("Read failed!", "", MessageIcon::Stop);
  return buffer;
}

}  // namespace

void ResetViewMatrix(std::array<double, 16>& matrix) {
  for (std::size_t i = 0; i < matrix.size(); ++i) matrix[i] = i % 5 == 0 ? 1.0 : 0.0;
}

int readElementFile(ElementFileState& state, Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path) {
  state.tapPicked = 0;
  ResetViewMatrix(state.viewMatrix);
  return readElementFile(catalogue, messages, text, path);
}

bool openElementFile(ElementFileState& state, Catalogue& catalogue, MessageSink& messages,
                     const std::string& path) {
  const bool opened = openElementFile(catalogue, messages, path);
  if (opened) {
    state.tapPicked = 0;
    ResetViewMatrix(state.viewMatrix);
  }
  return opened;
}

void BeginOpenCommand(ElementFileState& state, Settings& settings) {
  settings.satDisplay = 0;
  state.tapPicked = 0;
  state.iridiumFile = 0;
}

int OpenChosenFile(ElementFileState& state, Catalogue& catalogue, Settings& settings, SettingsStore& store,
                   MessageSink& messages, const std::string& path) {
  catalogue.selected.fill(0);
  catalogue.satelliteCount = 0;
  const std::string text = readCapped(path, messages);
  if (isIridiumFileName(path, IridiumMatch::EitherCaseFirstLetter)) state.iridiumFile = 1;
  else settings.flares = 0;

  const ElementLoad load = loadElements(catalogue, text);
  const int count = load.count;
  ResetViewMatrix(state.viewMatrix);
  char message[512];
  std::snprintf(message, sizeof message, "Data of %d satellites successfully read from %s", count, path.c_str());
  messages.show(withSkippedLine(message, load.skipped), "Info", MessageIcon::Information);

  const LinkFrequencies links = frequenciesForFile(path);
  settings.downlink = links.downlink;
  settings.uplink = links.uplink;
  settings.lastOpen = path;
  saveLastFileGroup(settings, store);
  return count;
}

void StartUpElementFiles(ElementFileState& state, Catalogue& catalogue, Settings& settings, MessageSink& messages,
                         const std::string& programFolder) {
  const std::string path = settings.lastOpen;
  if (isIridiumFileName(path, IridiumMatch::LowerCaseOnly)) state.iridiumFile = 1;
  else settings.flares = 0;
  openElementFile(state, catalogue, messages, path);

  const std::string selection = selectionFilePath(programFolder, messages);
  if (!selection.empty()) readSelectionFile(selection, catalogue);
}

bool ExitElementFiles(const Catalogue& catalogue, const Settings& settings, SettingsStore& store,
                      MessageSink& messages, const std::string& programFolder) {
  const std::string selection = selectionFilePath(programFolder, messages);
  const bool written = !selection.empty() && writeSelectionFile(selection, catalogue);
  if (!settings.lastOpen.empty()) saveLastFileGroup(settings, store);
  return written;
}

}  // namespace norvane
