#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace norvane {

// Radio and rotator control through rigctld and rotctld. Saved as their own
// group when the "Radio" dialog closes with OK; each field is stored as its
// raw little-endian bytes under the name in the comment.
struct RadioSettings {
  std::int32_t rigEnable = 0;        // "RigEnable": 1 = drive the radio
  std::string rigHost = "127.0.0.1"; // "RigHost": 64 bytes, UTF-8, zero-filled
  std::int32_t rigPort = 4532;       // "RigPort"
  std::int32_t rigPeriodMs = 1000;   // "RigPeriod": ms between updates
  double rigToleranceHz = 10.0;      // "RigTolerance": Hz, smaller changes are not sent
  std::int32_t rotEnable = 0;        // "RotEnable": 1 = drive the rotator
  std::string rotHost = "127.0.0.1"; // "RotHost": 64 bytes
  std::int32_t rotPort = 4533;       // "RotPort"
  std::int32_t rotPeriodMs = 1000;   // "RotPeriod": ms between updates
  double rotToleranceDeg = 2.0;      // "RotTolerance": deg, smaller moves are not sent
  std::int32_t rotAzRange = 0;       // "RotAzRange": 0 = 0-360, 1 = -180-180, 2 = 0-450
  std::int32_t rotElRange = 0;       // "RotElRange": 0 = 0-90, 1 = 0-180
  std::int32_t rotFlip = 1;          // "RotFlip": 1 = a 0-180 rotator may take a pass flipped
  double rotMinElevation = 0.0;      // "RotMinEl": deg, tracking starts above it
  double rotParkAz = 0.0;            // "RotParkAz": deg
  double rotParkEl = 0.0;            // "RotParkEl": deg
};

inline constexpr std::size_t kRadioHostBytes = 64;

}  // namespace norvane
