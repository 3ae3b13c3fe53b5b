// One full paint of each view at 23:00 local time in Kiel on 14 April 2017.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/data_file.h"
#include "core/elements/element_file.h"
#include "ui/surface/skins.h"
#include "ui/views/gps_page.h"
#include "ui/views/map_view.h"
#include "ui/views/orbit_view.h"
#include "ui/views/sky_view.h"

namespace norvane {
namespace {

class QuietSink : public MessageSink {
 public:
  void show(const std::string&, const std::string&, MessageIcon) override {}
};

struct Bench {
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  Settings settings;
  GpsData gps;
  std::unique_ptr<Skins> skins = std::make_unique<Skins>();
  std::unique_ptr<ViewCaches> caches = std::make_unique<ViewCaches>();
  AppState app;
  DrawingSurface surface = MakeOffscreenSurface();
  ViewWorld world{app, *catalogue, settings, gps, *skins, *caches, surface, nullptr};

  Bench() {
    QuietSink sink;
    // The two element files together fill every slot.
    const std::string text = bench::DataFileText("visual_2017-04-14.txt") + bench::DataFileText("iridium_2014-06-21.txt");
    readElementFile(*catalogue, sink, text, "visual+iridium");
    catalogue->selected.fill(1);
    LoadSkins(*skins, surface, std::string(NORVANE_DATA_DIR) + "/skins", sink);
    settings.starsMag = 5;
    settings.flagPlanets = 1;
    app.currentTime = 2457858.375;
    app.observer = {0.9477539264057168, 0.17670935077666988, 0.03, 0.0};
    app.currentSatellite = 106;
  }
};

void BM_PaintSky(benchmark::State& state) {
  Bench b;
  b.app.viewMode = ViewMode::Sky;
  for (auto _ : state) PaintSky(b.world);
  state.counters["satellites"] = b.catalogue->satelliteCount;
}
BENCHMARK(BM_PaintSky)->Unit(benchmark::kMicrosecond);

void BM_PaintMap(benchmark::State& state) {
  Bench b;
  b.app.viewMode = ViewMode::Map;
  for (auto _ : state) PaintMap(b.world);
  state.counters["satellites"] = b.catalogue->satelliteCount;
}
BENCHMARK(BM_PaintMap)->Unit(benchmark::kMicrosecond);

void BM_PaintOrbit(benchmark::State& state) {
  Bench b;
  for (auto _ : state) {
    BuildOrbitScene(b.world);
    PaintOrbit(b.world);
  }
}
BENCHMARK(BM_PaintOrbit)->Unit(benchmark::kMicrosecond);

void BM_PaintGpsPage(benchmark::State& state) {
  Bench b;
  b.gps.fixMode = 3;
  for (int i = 0; i < 12; ++i) {
    b.gps.prn[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(i + 1);
    b.gps.snr[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(20 + 2 * i);
  }
  for (auto _ : state) PaintGpsPage(b.world, b.app.currentTime);
}
BENCHMARK(BM_PaintGpsPage)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace norvane
