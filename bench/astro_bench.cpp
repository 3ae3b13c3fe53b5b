// Cost of the sky view's astronomy: Sun, Moon, almanac, nine planets and the
// whole star catalogue for one observer and one instant, and each part alone.
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/astro/look_angles.h"
#include "core/astro/moon.h"
#include "core/astro/planet_elements.h"
#include "core/astro/planets.h"
#include "core/astro/star_catalogue.h"
#include "core/astro/star_placement.h"
#include "core/astro/sun.h"
#include "core/astro/sun_moon_almanac.h"

namespace norvane {
namespace {

constexpr double kStartJd = 2460000.5;

struct Sky {
  Geodetic observer{0.9, 0.23, 0.1, 0.0};
  LookAngleCache lookCache;
  PlanetCache planetCache;
};

double sunAndMoon(Sky& sky, double jd) {
  StateVector sun;
  SunPosition(jd, sun);
  LookAngles sunAngles;
  LookAnglesOf(jd, sun, StateVector{}, sky.observer, sky.lookCache, sunAngles, true, false);
  MoonHorizontal moon;
  MoonSubPoint sub;
  MoonPosition(jd - kMoonEpoch, sky.observer, moon, sub);
  double phase, age, moonDistance, moonDiameter, sunDistance, sunDiameter;
  SunMoonAlmanac(jd, phase, age, moonDistance, moonDiameter, sunDistance, sunDiameter);
  return sunAngles.elevation + moon.altitude + phase;
}

double planets(Sky& sky, double jd) {
  double sum = 0.0;
  for (int body = 0; body < kPlanetCount; ++body) {
    LookAngles angles;
    PlanetLookAngles(jd, body, sky.observer, sky.planetCache, sky.lookCache, false, angles);
    sum += angles.elevation;
  }
  return sum;
}

int stars(const Sky& sky) {
  const StarObserver observer{std::sin(sky.observer.lat), std::cos(sky.observer.lat)};
  const double sinTheta = std::sin(sky.observer.theta);
  const double cosTheta = std::cos(sky.observer.theta);
  int above = 0;
  for (int i = 0; i < StarScanCount(5); ++i) {
    StarPoint p;
    above += StarHorizontal(sinTheta, cosTheta, StarCatalogue[static_cast<std::size_t>(i)], observer, p);
  }
  return above;
}

// Each iteration moves the clock one second so that no cache answers for free.
void BM_WholeSky(benchmark::State& state) {
  Sky sky;
  double jd = kStartJd;
  for (auto _ : state) {
    jd += 1.0 / 86400.0;
    benchmark::DoNotOptimize(sunAndMoon(sky, jd));
    benchmark::DoNotOptimize(planets(sky, jd));
    benchmark::DoNotOptimize(stars(sky));
  }
}
BENCHMARK(BM_WholeSky);

void BM_SunAndMoon(benchmark::State& state) {
  Sky sky;
  double jd = kStartJd;
  for (auto _ : state) benchmark::DoNotOptimize(sunAndMoon(sky, jd += 1.0 / 86400.0));
}
BENCHMARK(BM_SunAndMoon);

void BM_NinePlanets(benchmark::State& state) {
  Sky sky;
  double jd = kStartJd;
  for (auto _ : state) benchmark::DoNotOptimize(planets(sky, jd += 1.0 / 86400.0));
}
BENCHMARK(BM_NinePlanets);

void BM_StarCatalogue(benchmark::State& state) {
  Sky sky;
  sky.observer.theta = 1.3;
  for (auto _ : state) {
    sky.observer.theta += 1e-5;
    benchmark::DoNotOptimize(stars(sky));
  }
  state.SetItemsProcessed(state.iterations() * kStarCount);
}
BENCHMARK(BM_StarCatalogue);

}  // namespace
}  // namespace norvane
