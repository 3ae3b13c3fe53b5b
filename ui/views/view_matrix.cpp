#include "ui/views/view_matrix.h"

#include <cmath>

namespace norvane {

namespace {

// The fixed 3 degree step, whatever the distance moved.
constexpr double kStepSin = 0.0523359562;
constexpr double kStepCos = 0.9986295347;

// Turns by the angle whose sine is s between rows a and b, first three columns.
void TurnRows(ViewMatrix& matrix, int a, int b, double s, double c) {
  for (int col = 0; col < 3; ++col) {
    const double rowA = matrix.m[a][col];
    const double rowB = matrix.m[b][col];
    matrix.m[a][col] = c * rowA + s * rowB;
    matrix.m[b][col] = c * rowB - s * rowA;
  }
}

double StepToward(std::int32_t now, std::int32_t before) {
  if (now > before) return kStepSin;
  if (now < before) return -kStepSin;
  return 0.0;
}

}  // namespace

void ResetViewMatrix(ViewMatrix& matrix) { matrix = ViewMatrix{}; }

void SetViewHeading(ViewMatrix& matrix, double angle) {
  ResetViewMatrix(matrix);
  matrix.m[0][0] = -std::cos(angle);
  matrix.m[0][1] = -std::sin(angle);
  matrix.m[1][0] = std::sin(angle);
  matrix.m[1][1] = -std::cos(angle);
}

void ManipulateView(ViewMatrix& matrix, StylusTrack& track, std::int32_t x, std::int32_t y,
                    ViewAction action) {
  switch (action) {
    case ViewAction::Press:
      break;
    case ViewAction::Drag: {
      // An equal coordinate turns by 0 degrees: sine 0, cosine 1.
      const double sx = StepToward(x, track.px);
      TurnRows(matrix, 0, 2, sx, sx == 0.0 ? 1.0 : kStepCos);
      const double sy = StepToward(y, track.py);
      TurnRows(matrix, 1, 2, sy, sy == 0.0 ? 1.0 : kStepCos);
      break;
    }
    case ViewAction::ZoomOut:
      matrix.m[3][3] /= 1.1;
      if (matrix.m[3][3] < 1e-7) matrix.m[3][3] = 1e-7;
      return;
    case ViewAction::ZoomIn:
      matrix.m[3][3] *= 1.1;
      if (matrix.m[3][3] > 10000) matrix.m[3][3] = 10000;
      return;
    case ViewAction::TurnLeft:
    case ViewAction::TurnRight: {
      const double s = action == ViewAction::TurnLeft ? -kStepSin : kStepSin;
      for (int col = 0; col < 2; ++col) {
        const double row0 = matrix.m[0][col];
        const double row1 = matrix.m[1][col];
        matrix.m[0][col] = kStepCos * row0 - s * row1;
        matrix.m[1][col] = s * row0 + kStepCos * row1;
      }
      break;
    }
  }
  track.px = x;
  track.py = y;
}

}  // namespace norvane
