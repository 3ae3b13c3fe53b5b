#pragma once
#include "ui/views/view_world.h"

namespace norvane {

// Paints the GPS status page for the system clock's UTC time systemTime (jd):
// receiver time, fix, position, dilutions with their bars, speed, and the
// signal chart of the twelve satellites in view; then presents the frame.
void PaintGpsPage(ViewWorld& world, double systemTime);

// Number of the seven dilution boxes a value fills.
int DilutionBoxes(double value);

}  // namespace norvane
