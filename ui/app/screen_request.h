#pragma once

namespace norvane {

// What a step of the window's logic asks the window to do afterwards.
struct ScreenRequest {
  enum class Screen { Keep, Full, Standard };
  Screen screen = Screen::Keep;
  bool repaint = false;
  bool erase = false;  // repaint the background too

  static ScreenRequest none() { return {}; }
  static ScreenRequest paint() { return {Screen::Keep, true, false}; }
  static ScreenRequest paintErased() { return {Screen::Keep, true, true}; }
  static ScreenRequest full() { return {Screen::Full, true, false}; }
  static ScreenRequest standard() { return {Screen::Standard, true, true}; }
  bool operator==(const ScreenRequest&) const = default;
};

}  // namespace norvane
