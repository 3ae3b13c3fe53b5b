// grab_window WINDOW-ID OUT.png: saves a picture of an X window (0: the whole screen).
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: grab_window WINDOW-ID OUT.png\n");
    return 2;
  }
  const auto window = static_cast<WId>(std::strtoull(argv[1], nullptr, 0));
  const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(window);
  return !picture.isNull() && picture.save(argv[2]) ? 0 : 1;
}
