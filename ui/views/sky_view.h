#pragma once
#include "ui/views/view_world.h"

namespace norvane {

// Paints the sky view: the polar plot of the observer's sky with stars,
// constellation lines, planets, Sun, Moon, satellites and the overlay texts,
// then presents the frame. A tap on the clock label changes the clock mode, a
// tap on a satellite makes it current.
void PaintSky(ViewWorld& world);

}  // namespace norvane
