#include "ui/surface/skins.h"

#include "ui/surface/bitmap_reader.h"
#include "ui/surface/builtin_marks.h"
#include "ui/surface/color.h"

namespace norvane {

namespace {

struct SkinFile {
  const char* name;
  Image Skins::*image;
};

constexpr SkinFile kSkinFiles[] = {
    {"night.bmp", &Skins::night},     {"day.bmp", &Skins::day},
    {"iss.bmp", &Skins::iss},         {"sun.bmp", &Skins::sun},
    {"moon.bmp", &Skins::moon},       {"moondark.bmp", &Skins::moonDark},
    {"hst.bmp", &Skins::hst},         {"sat.bmp", &Skins::sat},
    {"notsell.bmp", &Skins::notSelected}, {"GPS.bmp", &Skins::gps},
    {"GPSU.bmp", &Skins::gpsUnused},
};

Image MarkImage(const DrawingSurface& surface, const std::uint32_t* rgb, std::int32_t side) {
  Image image;
  image.width = side;
  image.height = side;
  image.pixels.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  for (std::int32_t i = 0; i < side * side; ++i) image.pixels.push_back(ColorOf(surface, rgb[i]));
  return image;
}

std::string JoinPath(const std::string& folder, const char* name) {
  if (folder.empty() || folder.back() == '/') return folder + name;
  return folder + "/" + name;
}

}  // namespace

Image ObserverMark(const DrawingSurface& surface) {
  return MarkImage(surface, kObserverMark, kObserverMarkSide);
}

Image CurrentMark(const DrawingSurface& surface) {
  return MarkImage(surface, kCurrentMark, kCurrentMarkSide);
}

int LoadSkins(Skins& skins, const DrawingSurface& surface, const std::string& folder,
              MessageSink& messages) {
  int read = 0;
  for (const SkinFile& file : kSkinFiles) {
    Image& image = skins.*file.image;
    if (ReadBitmapFile(JoinPath(folder, file.name), surface, image)) {
      ++read;
    } else {
      messages.show(std::string("Read bitmap ") + file.name + " failed!", "", MessageIcon::Stop);
    }
  }
  skins.observer = ObserverMark(surface);
  skins.current = CurrentMark(surface);
  skins.key = ColorOf(surface, kTransparencyKey);
  return read;
}

void FreeSkins(Skins& skins) { skins = Skins{}; }

}  // namespace norvane
