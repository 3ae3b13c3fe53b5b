#pragma once
#include <map>
#include <string>
#include <string_view>

#include "core/platform/settings_store.h"

namespace norvane {

// The values of a settings file by name (the part after "Software/Norvane/").
using StoredValues = std::map<std::string, SettingBytes>;

// Every value of the group "Software/Norvane" that the text holds as bytes
// ("Norvane\NAME=@ByteArray(...)" below "[Software]"). A line that is damaged,
// holds another kind of value or belongs elsewhere is passed over on its own;
// the lines around it still count. Any bytes are accepted.
StoredValues ParseSettingsIni(std::string_view text);

// The text of a settings file holding exactly values, in name order, in the
// form ParseSettingsIni reads (and QSettings reads too).
std::string SettingsIniText(const StoredValues& values);

}  // namespace norvane
