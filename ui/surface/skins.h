#pragma once
#include <cstdint>
#include <string>

#include "core/platform/message_sink.h"
#include "ui/surface/drawing_surface.h"
#include "ui/surface/image.h"

namespace norvane {

// The bitmaps the graphic views blit: the eleven skin files and the two
// built-in marks.
struct Skins {
  Image night;        // "night.bmp": map, night side, full screen
  Image day;          // "day.bmp": map, day side, full screen
  Image iss;          // "iss.bmp": catalogue number 25544, 7 x 7
  Image sun;          // "sun.bmp": 12 x 12
  Image moon;         // "moon.bmp": 12 x 12
  Image moonDark;     // "moondark.bmp": the Moon's unlit side, 12 x 12
  Image hst;          // "hst.bmp": catalogue number 20580, 7 x 7
  Image sat;          // "sat.bmp": the current satellite, 7 x 7
  Image notSelected;  // "notsell.bmp": every other satellite, 7 x 7
  Image gps;          // "GPS.bmp": a GPS satellite used for the fix, 7 x 7
  Image gpsUnused;    // "GPSU.bmp": a GPS satellite in view, not used, 7 x 7
  Image observer;     // built-in mark 129: the observer, 9 x 9
  Image current;      // built-in mark 131: ring of the current satellite in the sky, 11 x 11
  std::uint16_t key = 0;  // the transparency key as a surface pixel
};

// Reads the skin files from folder in the order of the table (night first,
// GPSU last), builds the two marks and converts the transparency key. A file
// that cannot be read shows "Read bitmap NAME failed!" (stop icon, no title)
// and leaves its image empty. Returns the number of files read.
int LoadSkins(Skins& skins, const DrawingSurface& surface, const std::string& folder,
              MessageSink& messages);

// Frees every image.
void FreeSkins(Skins& skins);

// The built-in marks in the surface's pixel format.
Image ObserverMark(const DrawingSurface& surface);
Image CurrentMark(const DrawingSurface& surface);

}  // namespace norvane
