#include "ui/app/window_input.h"

namespace norvane {

void NextSelectedSatellite(AppState& app, const Catalogue& catalogue) {
  int i = app.currentSatellite;
  for (;;) {
    i += 1;
    if (i < 0 || i >= kSelectionFlags) return;
    if (catalogue.selected[static_cast<std::size_t>(i)] == 1) break;
    if (i >= catalogue.satelliteCount - 1) return;
  }
  app.currentSatellite = i;
  app.tapPicked = 0;
}

void PreviousSelectedSatellite(AppState& app, const Catalogue& catalogue) {
  int i = app.currentSatellite;
  for (;;) {
    i -= 1;
    if (i < 0 || i >= kSelectionFlags) return;
    if (catalogue.selected[static_cast<std::size_t>(i)] == 1) break;
    if (i <= 1) return;
  }
  app.currentSatellite = i;
  app.tapPicked = 0;
}

ScreenRequest ShowInfoPage(AppState& app) {
  app.viewMode = ViewMode::Info;
  return ScreenRequest::standard();
}

ScreenRequest KeyDown(MainState& state, int key) {
  AppState& app = state.app;
  const bool orbit = app.viewMode == ViewMode::Orbit;
  const bool sky = app.viewMode == ViewMode::Sky;
  const Point p = app.tapPoint;
  switch (key) {
    case kKeyLeft:
    case kKeyRight:
      if (orbit) {
        ManipulateView(app.viewMatrix, app.stylus, p.x, p.y, key == kKeyLeft ? ViewAction::ZoomOut : ViewAction::ZoomIn);
        app.dragActive = 1;
        return ScreenRequest::paint();
      }
      if (sky) {
        ManipulateView(app.viewMatrix, app.stylus, p.x, p.y,
                       key == kKeyLeft ? ViewAction::TurnLeft : ViewAction::TurnRight);
        return ScreenRequest::paint();
      }
      return ScreenRequest::none();
    case kKeyDown: NextSelectedSatellite(app, state.catalogue); return ScreenRequest::none();
    case kKeyUp: PreviousSelectedSatellite(app, state.catalogue); return ScreenRequest::none();
    case kKeyReturn: return ShowInfoPage(app);
    default: return ScreenRequest::none();
  }
}

ScreenRequest KeyUp(MainState& state, int key) {
  if (key != kKeyLeft && key != kKeyRight) return ScreenRequest::none();
  state.app.dragActive = 0;
  return ScreenRequest::paint();
}

Point ToFrameBuffer(std::int32_t x, std::int32_t y, std::int32_t clientWidth, std::int32_t clientHeight,
                    std::int32_t screenWidth, std::int32_t screenHeight) {
  if (clientWidth <= 0 || clientHeight <= 0) return {0, 0};
  return {x * screenWidth / clientWidth, y * screenHeight / clientHeight};
}

ScreenRequest StylusDown(MainState& state, Point point) {
  AppState& app = state.app;
  app.tapPoint = point;
  app.dragActive = 1;
  if (app.viewMode == ViewMode::Orbit) ManipulateView(app.viewMatrix, app.stylus, point.x, point.y, ViewAction::Press);
  const bool topRight = point.x >= 231 && point.y < 10;
  const bool bottomRight = point.x >= 231 && point.y >= 311;
  switch (app.viewMode) {
    case ViewMode::Sky:
    case ViewMode::Orbit:
    case ViewMode::Gps:
      if (topRight) return ShowInfoPage(app);
      break;
    case ViewMode::Map:
      if (bottomRight) return ShowInfoPage(app);
      break;
    default: break;
  }
  return ScreenRequest::none();
}

ScreenRequest StylusMove(MainState& state, Point point) {
  AppState& app = state.app;
  app.tapPoint = point;
  if (app.viewMode != ViewMode::Orbit) return ScreenRequest::none();
  app.dragActive = 1;
  ManipulateView(app.viewMatrix, app.stylus, point.x, point.y, ViewAction::Drag);
  return ScreenRequest::paint();
}

ScreenRequest StylusUp(MainState& state) {
  state.app.tapPicked = 0;
  state.app.dragActive = 0;
  return ScreenRequest::paint();
}

}  // namespace norvane
