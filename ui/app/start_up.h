#pragma once
#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "ui/app/clock_tick.h"
#include "ui/app/main_state.h"

namespace norvane {

// The window's creation steps up to the GPS port: defaults, the settings from
// the store, the last opened element file (Iridium only for a lower-case
// "iridium" name), the whole-hour UTC offset, the view matrix and the
// program folder's Select.bol. The program folder must be set.
void CreateMainState(MainState& state, SettingsStore& store, MessageSink& messages, const CalendarTime& local,
                     const CalendarTime& utc);

}  // namespace norvane
