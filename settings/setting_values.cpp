#include "settings/setting_values.h"

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

constexpr std::array kValues = {
    scalar<&Settings::lat>("Lat"),
    scalar<&Settings::lon>("Lon"),
    scalar<&Settings::alt>("Alt"),
    scalar<&Settings::city>("City"),
    scalar<&Settings::gpsPort>("GPSPort"),
    scalar<&Settings::gpsSpeed>("GPSSpeed"),
    scalar<&Settings::gpsCompass>("GPSCompass"),
    scalar<&Settings::gpsAcceptGN>("GPSAcceptGN"),
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

    // Pass planner and pass alarms.
    scalar<&Settings::passMinElevation>("PassMinElevation"),
    scalar<&Settings::passAlarmMinutes>("PassAlarmMinutes"),
    scalar<&Settings::passAlarmScope>("PassAlarmScope"),
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
