// Cost of the drawing primitives on the 240 x 320 off-screen surface.
#include <benchmark/benchmark.h>

#include <string>

#include "core/platform/message_sink.h"
#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/png_writer.h"
#include "ui/surface/primitives.h"
#include "ui/surface/skins.h"
#include "ui/surface/text.h"

namespace norvane {
namespace {

struct Quiet : MessageSink {
  void show(const std::string&, const std::string&, MessageIcon) override {}
};

const Skins& LoadedSkins(const DrawingSurface& surface) {
  static Skins skins;
  static bool loaded = false;
  if (!loaded) {
    Quiet quiet;
    LoadSkins(skins, surface, NORVANE_DATA_DIR "/skins", quiet);
    loaded = true;
  }
  return skins;
}

void BM_PutPixelFullScreen(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  for (auto _ : state) {
    for (std::int32_t y = 0; y < 320; ++y) {
      for (std::int32_t x = 0; x < 240; ++x) PutPixel(surface, x, y, 0x1234);
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_PutPixelFullScreen);

void BM_DrawLineDiagonal(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  for (auto _ : state) DrawLine(surface, {1, 1}, {239, 319}, Rgb(0, 255, 0));
}
BENCHMARK(BM_DrawLineDiagonal);

void BM_FillRectFullScreen(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  for (auto _ : state) FillRect(surface, 0, 320, 320, 240, Rgb(0, 0, 120));
}
BENCHMARK(BM_FillRectFullScreen);

void BM_DrawText26Vertical(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  for (auto _ : state) {
    Point p{200, 10};
    DrawText(surface, p, "ISS (ZARYA)               ", 26, Rgb(225, 0, 0), true, false);
  }
}
BENCHMARK(BM_DrawText26Vertical);

void BM_BlitFullScreen(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  const Skins& skins = LoadedSkins(surface);
  for (auto _ : state) Blit(surface, 0, 0, 240, 320, skins.night, 0, 0);
}
BENCHMARK(BM_BlitFullScreen);

void BM_BlitKeyedIcon(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  const Skins& skins = LoadedSkins(surface);
  for (auto _ : state) BlitKeyed(surface, 100, 100, 12, 12, skins.sun, skins.key, 0, 0);
}
BENCHMARK(BM_BlitKeyedIcon);

void BM_LoadSkins(benchmark::State& state) {
  const DrawingSurface surface = MakeOffscreenSurface();
  Quiet quiet;
  for (auto _ : state) {
    Skins skins;
    benchmark::DoNotOptimize(LoadSkins(skins, surface, NORVANE_DATA_DIR "/skins", quiet));
  }
}
BENCHMARK(BM_LoadSkins)->Unit(benchmark::kMillisecond);

void BM_EncodePngMap(benchmark::State& state) {
  DrawingSurface surface = MakeOffscreenSurface();
  Blit(surface, 0, 0, 240, 320, LoadedSkins(surface).day, 0, 0);
  for (auto _ : state) benchmark::DoNotOptimize(EncodePng(surface));
}
BENCHMARK(BM_EncodePngMap)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace norvane
