#pragma once
#include "ui/views/view_world.h"

namespace norvane {

// Computes the orbit view's scene for the world's time: one orbit of the
// current satellite from now, its state and acceleration, the observer, and
// the directions of the Sun, Moon and planets. The window recomputes it on
// every paint except while a drag turns the view.
void BuildOrbitScene(ViewWorld& world);

// Paints the scene held in the caches: a wire-frame Earth turned to its
// sidereal angle, the orbit coloured by sunlight, the satellite with its
// velocity, the Sun, Moon and planets on a sphere of directions, and the
// radius, velocity and acceleration read-outs; then presents the frame. The
// view matrix turns the scene (rows 0 to 2) and zooms it ([3][3]).
void PaintOrbit(ViewWorld& world);

}  // namespace norvane
