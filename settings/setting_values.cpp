#include "settings/setting_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <type_traits>

#include "settings/wide_path.h"

namespace norvane {

namespace {

template <typename T>
SettingBytes littleEndianBytes(T value) {
  using Raw = std::conditional_t<sizeof(T) == 8, std::uint64_t,
                                 std::conditional_t<sizeof(T) == 4, std::uint32_t,
                                                    std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint8_t>>>;
  const auto raw = std::bit_cast<Raw>(value);
  SettingBytes out(sizeof(T));
  for (std::size_t i = 0; i < sizeof(T); ++i) out[i] = static_cast<std::uint8_t>(raw >> (8 * i));
  return out;
}

template <typename T>
T fromLittleEndian(const std::uint8_t* bytes) {
  using Raw = std::conditional_t<sizeof(T) == 8, std::uint64_t,
                                 std::conditional_t<sizeof(T) == 4, std::uint32_t,
                                                    std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint8_t>>>;
  Raw raw = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) raw = static_cast<Raw>(raw | (static_cast<Raw>(bytes[i]) << (8 * i)));
  return std::bit_cast<T>(raw);
}

// A value held in an arithmetic field: its width is the field's size.
template <auto Member>
constexpr SettingValue scalar(std::string_view name) {
  using T = std::remove_cvref_t<decltype(std::declval<Settings&>().*Member)>;
  return {name, sizeof(T),
          [](const Settings& s) { return littleEndianBytes<T>(s.*Member); },
          [](Settings& s, const std::uint8_t* bytes) { s.*Member = fromLittleEndian<T>(bytes); }};
}

SettingBytes encodeLastOpen(const Settings& s) {
  const auto wide = encodeWidePath(s.lastOpen);
  return SettingBytes(wide.begin(), wide.end());
}

void decodeLastOpen(Settings& s, const std::uint8_t* bytes) {
  s.lastOpen = decodeWidePath(bytes, kWidePathBytes);
}

// The port map as its text (one device per line, COM1: first), zero after
// it; a map too long to fit keeps the lines that fit whole.
SettingBytes encodeGpsDevices(const Settings& s) {
  SettingBytes out(kGpsDevicesBytes, 0);
  std::size_t used = 0;
  for (std::size_t i = 1; i < s.gpsDevices.devices.size(); ++i) {
    std::string line;
    for (const char c : s.gpsDevices.devices[i]) {
      if (c != '\n' && c != '\0') line.push_back(c);
    }
    line.push_back('\n');
    if (used + line.size() > kGpsDevicesBytes - 1) break;
    std::copy(line.begin(), line.end(), out.begin() + static_cast<std::ptrdiff_t>(used));
    used += line.size();
  }
  return out;
}

void decodeGpsDevices(Settings& s, const std::uint8_t* bytes) {
  std::size_t length = 0;
  while (length < kGpsDevicesBytes && bytes[length] != 0) ++length;
  s.gpsDevices = GpsPortMapFromText(std::string(reinterpret_cast<const char*>(bytes), length));
}

constexpr std::array kValues = {
    scalar<&Settings::lat>("Lat"),
    scalar<&Settings::lon>("Lon"),
    scalar<&Settings::alt>("Alt"),
    scalar<&Settings::city>("City"),
    scalar<&Settings::gpsPort>("GPSPort"),
    scalar<&Settings::gpsSpeed>("GPSSpeed"),
    scalar<&Settings::gpsCompass>("GPSCompass"),
    scalar<&Settings::gpsAcceptGN>("GPSAcceptGN"),
    SettingValue{"GPSDevices", static_cast<std::uint32_t>(kGpsDevicesBytes), encodeGpsDevices, decodeGpsDevices},
    scalar<&Settings::snToNs>("SNtoNS"),
    scalar<&Settings::starsMag>("Stars_Mag"),
    scalar<&Settings::satPredictMag>("SatPredictMag"),
    scalar<&Settings::satPredictVisible>("SatPredictVisible"),
    scalar<&Settings::flagRefraction>("flag_refraction"),
    scalar<&Settings::uplink>("uplink"),
    scalar<&Settings::downlink>("downlink"),
    scalar<&Settings::flares>("flares"),
    scalar<&Settings::s4s8>("s4_s8"),
    scalar<&Settings::flagPlanets>("Flag_planets"),
    scalar<&Settings::flagColors>("Flag_colors"),
    scalar<&Settings::satDisplay>("Sat_Display"),
    SettingValue{"Last_Open", static_cast<std::uint32_t>(kWidePathBytes), encodeLastOpen, decodeLastOpen},
};

}  // namespace

std::span<const SettingValue> settingValues() { return kValues; }

const SettingValue* findSettingValue(std::string_view name) {
  for (const SettingValue& v : kValues) {
    if (v.name == name) return &v;
  }
  return nullptr;
}

}  // namespace norvane
