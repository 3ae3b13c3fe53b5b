#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "settings/settings.h"

namespace norvane {

// The parts of the application's state that loading an element file touches
// besides the catalogue and the settings (the current satellite is the
// settings' satDisplay, the flares option their flares).
struct ElementFileState {
  std::int32_t tapPicked = 0;    // the sky view's "satellite picked by this tap" flag
  std::int32_t iridiumFile = 0;  // 1 when the loaded file's name marks Iridium satellites
  std::array<double, 16> viewMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};  // row-major
};

// Sets the 4 x 4 view orientation to the identity.
void ResetViewMatrix(std::array<double, 16>& matrix);

// readElementFile, and clears the tap-pick flag and resets the view matrix.
int readElementFile(ElementFileState& state, Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path);
// openElementFile through the readElementFile above.
bool openElementFile(ElementFileState& state, Catalogue& catalogue, MessageSink& messages,
                     const std::string& path);

// The "Open" command before its file dialog: current satellite 0, tap-pick
// and Iridium-file flags cleared. A cancelled dialog ends the command here.
void BeginOpenCommand(ElementFileState& state, Settings& settings);

// The "Open" command with the chosen path: reads the file ("I can't open the
// file!" and "Read failed!" do not stop it), sets the Iridium flag or turns
// the flares option off ("iridium"/"Iridium"), loads, shows "Data of %d
// satellites successfully read from %s" titled "Info", picks the link
// frequencies, remembers the path and saves the last-file group. Returns the count.
int OpenChosenFile(ElementFileState& state, Catalogue& catalogue, Settings& settings, SettingsStore& store,
                   MessageSink& messages, const std::string& path);

// Start-up: loads settings.lastOpen (Iridium only for a lower-case
// "iridium"), then replaces the selection by the program folder's Select.bol
// when there is one.
void StartUpElementFiles(ElementFileState& state, Catalogue& catalogue, Settings& settings, MessageSink& messages,
                         const std::string& programFolder);

// Exit: writes Select.bol, then saves the last-file group when a file was
// opened. False when the selection file could not be written.
bool ExitElementFiles(const Catalogue& catalogue, const Settings& settings, SettingsStore& store,
                      MessageSink& messages, const std::string& programFolder);

}  // namespace norvane
