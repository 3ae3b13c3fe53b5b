#pragma once
#include <memory>
#include <string>

#include "core/elements/element_file.h"
#include "ui/surface/color.h"
#include "ui/surface/skins.h"
#include "tests/common/test_support.h"
#include "ui/views/view_world.h"

namespace norvane::test {

// A whole world for one paint: the visual element file of 14 April 2017, the
// data skins, an observer at Kiel and 23:00 local time that evening.
struct ViewFixture {
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  Settings settings;
  GpsData gps;
  std::unique_ptr<Skins> skins = std::make_unique<Skins>();
  std::unique_ptr<ViewCaches> caches = std::make_unique<ViewCaches>();
  AppState app;
  DrawingSurface surface = MakeOffscreenSurface();
  ViewWorld world{app, *catalogue, settings, gps, *skins, *caches, surface, nullptr};

  ViewFixture() {
    testing::QuietSink sink;
    openElementFile(*catalogue, sink, std::string(NORVANE_DATA_DIR) + "/visual_2017-04-14.txt");
    for (int i = 0; i < catalogue->satelliteCount; ++i) catalogue->selected[static_cast<std::size_t>(i)] = 1;
    LoadSkins(*skins, surface, std::string(NORVANE_DATA_DIR) + "/skins", sink);
    app.currentTime = 2457858.375;
    app.observer = {54.3023 * kDegree, 10.1247 * kDegree, 0.03, 0.0};
  }
  static constexpr double kDegree = 3.14159265358979323846 / 180.0;

  std::uint16_t at(std::int32_t x, std::int32_t y) const { return PixelAt(surface, x, y); }
  std::uint16_t color(std::uint32_t rgb) const { return ColorOf(surface, rgb); }
  int count(std::uint32_t rgb) const {
    int n = 0;
    for (std::int32_t y = 0; y < surface.height; ++y) {
      for (std::int32_t x = 0; x < surface.width; ++x) n += at(x, y) == color(rgb) ? 1 : 0;
    }
    return n;
  }
};

}  // namespace norvane::test
