#pragma once
#include <array>
#include <cstdint>

namespace norvane {

// The shared view orientation: the sky view turns its screen with the upper
// left 2 x 2 block, the orbit view with rows 0 to 2; element [3][3] is the
// orbit view's zoom factor.
struct ViewMatrix {
  std::array<std::array<double, 4>, 4> m{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
  double zoom() const { return m[3][3]; }
};

// The last stylus point seen by ManipulateView; both 0 at first.
struct StylusTrack {
  std::int32_t px = 0;
  std::int32_t py = 0;
};

// What ManipulateView does with a point.
enum class ViewAction : int {
  Press = 0,      // remember the point
  Drag = 1,       // turn the orbit view 3 degrees per axis towards the move
  ZoomOut = 2,    // zoom / 1.1, at least 1e-7
  ZoomIn = 3,     // zoom * 1.1, at most 10000
  TurnLeft = 10,  // turn the sky 3 degrees one way
  TurnRight = 11  // and the other
};

// Identity.
void ResetViewMatrix(ViewMatrix& matrix);

// Identity, then the sky block turned by angle (radians) plus a half turn.
void SetViewHeading(ViewMatrix& matrix, double angle);

// Applies one stylus or key action at screen point (x, y).
void ManipulateView(ViewMatrix& matrix, StylusTrack& track, std::int32_t x, std::int32_t y,
                    ViewAction action);

}  // namespace norvane
