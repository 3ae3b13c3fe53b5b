#pragma once
#include <cstdint>

#include "ui/app/main_state.h"
#include "ui/app/screen_request.h"

namespace norvane {

// The keys the window reacts to, by their device key codes.
enum WindowKey : int { kKeyReturn = 13, kKeyLeft = 37, kKeyUp = 38, kKeyRight = 39, kKeyDown = 40 };

// The next selected satellite after the current one (Down); no wrap-around,
// nothing changes when there is none.
void NextSelectedSatellite(AppState& app, const Catalogue& catalogue);
// The previous one (Up); the search stops at entry 1, so entry 0 is reached
// only straight from entry 1.
void PreviousSelectedSatellite(AppState& app, const Catalogue& catalogue);

ScreenRequest KeyDown(MainState& state, int key);
ScreenRequest KeyUp(MainState& state, int key);

// A point of the window's client area (width x height pixels) in frame-buffer
// pixels of a width x height screen, integer division.
Point ToFrameBuffer(std::int32_t x, std::int32_t y, std::int32_t clientWidth, std::int32_t clientHeight,
                    std::int32_t screenWidth, std::int32_t screenHeight);

// Stylus events at a frame-buffer point.
ScreenRequest StylusDown(MainState& state, Point point);
ScreenRequest StylusMove(MainState& state, Point point);
ScreenRequest StylusUp(MainState& state);

// Leaving a graphic view: the information page on the standard screen.
ScreenRequest ShowInfoPage(AppState& app);

}  // namespace norvane
