#include "settings/radio_setting_values.h"

#include <array>
#include <bit>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace norvane {

namespace {

template <typename T>
using RawOf = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;

template <typename T>
SettingBytes Encode(T value) {
  const auto raw = std::bit_cast<RawOf<T>>(value);
  SettingBytes out(sizeof(T));
  for (std::size_t i = 0; i < sizeof(T); ++i) out[i] = static_cast<std::uint8_t>(raw >> (8 * i));
  return out;
}

template <typename T>
T Decode(const std::uint8_t* bytes) {
  RawOf<T> raw = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) raw |= static_cast<RawOf<T>>(bytes[i]) << (8 * i);
  return std::bit_cast<T>(raw);
}

template <auto Member>
constexpr SettingValue Scalar(std::string_view name) {
  using T = std::remove_cvref_t<decltype(std::declval<RadioSettings&>().*Member)>;
  return {name, sizeof(T), [](const Settings& s) { return Encode<T>(s.radio.*Member); },
          [](Settings& s, const std::uint8_t* bytes) { s.radio.*Member = Decode<T>(bytes); }};
}

// A host name in a fixed buffer: its bytes, cut to leave a terminating zero, zero-filled.
template <auto Member>
constexpr SettingValue Host(std::string_view name) {
  return {name, static_cast<std::uint32_t>(kRadioHostBytes),
          [](const Settings& s) {
            SettingBytes out(kRadioHostBytes, 0);
            const std::string& host = s.radio.*Member;
            std::memcpy(out.data(), host.data(), std::min(host.size(), kRadioHostBytes - 1));
            return out;
          },
          [](Settings& s, const std::uint8_t* bytes) {
            std::size_t n = 0;
            while (n < kRadioHostBytes && bytes[n] != 0) ++n;
            s.radio.*Member = std::string(reinterpret_cast<const char*>(bytes), n);
          }};
}

constexpr std::array kRadioValues = {
    Scalar<&RadioSettings::rigEnable>("RigEnable"),
    Host<&RadioSettings::rigHost>("RigHost"),
    Scalar<&RadioSettings::rigPort>("RigPort"),
    Scalar<&RadioSettings::rigPeriodMs>("RigPeriod"),
    Scalar<&RadioSettings::rigToleranceHz>("RigTolerance"),
    Scalar<&RadioSettings::rotEnable>("RotEnable"),
    Host<&RadioSettings::rotHost>("RotHost"),
    Scalar<&RadioSettings::rotPort>("RotPort"),
    Scalar<&RadioSettings::rotPeriodMs>("RotPeriod"),
    Scalar<&RadioSettings::rotToleranceDeg>("RotTolerance"),
    Scalar<&RadioSettings::rotAzRange>("RotAzRange"),
    Scalar<&RadioSettings::rotElRange>("RotElRange"),
    Scalar<&RadioSettings::rotFlip>("RotFlip"),
    Scalar<&RadioSettings::rotMinElevation>("RotMinEl"),
    Scalar<&RadioSettings::rotParkAz>("RotParkAz"),
    Scalar<&RadioSettings::rotParkEl>("RotParkEl"),
};

}  // namespace

std::span<const SettingValue> radioSettingValues() { return kRadioValues; }

bool saveRadioGroup(const Settings& settings, SettingsStore& store) {
  std::vector<NamedSetting> group;
  group.reserve(kRadioValues.size());
  for (const SettingValue& value : kRadioValues) group.push_back({std::string(value.name), value.encode(settings)});
  return store.write(group);
}

}  // namespace norvane
