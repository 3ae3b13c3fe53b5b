#pragma once
#include <array>
#include <cstdint>

namespace norvane {

// One catalogue star, held as the sines and cosines of its coordinates so that
// placing it in the sky needs no trigonometry of its own.
struct StarRecord {
  double sinRa;
  double cosRa;
  double sinDec;
  double cosDec;
  double magnitude;  // visual
};

inline constexpr int kStarCount = 1630;

// Stars of magnitude 5.0 and brighter in magnitude bands (indices 0-15, 16-49,
// 50-173, 174-504, 505-1628); the brightest star of the sky is the last record,
// outside the bands, so it is seen only when the whole table is walked.
extern const std::array<StarRecord, kStarCount> StarCatalogue;

// For each star the index of the star its constellation line goes to, or 0 for
// none; at most one line leaves a star.
extern const std::array<std::int32_t, kStarCount> StarLinks;

}  // namespace norvane
