// norvane: the tracker's window.
#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSettings>
#include <QStandardPaths>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "settings/qt_settings_store.h"
#include "ui/app/main_window.h"
#include "ui/app/program_options.h"

namespace {

using norvane::MainWindow;

// One tracker per program folder: the name a running one listens on.
QString InstanceName(const std::string& programFolder) {
  const QByteArray hash = QCryptographicHash::hash(QByteArray::fromStdString(programFolder), QCryptographicHash::Sha1);
  return "Norvane-" + QString::fromLatin1(hash.toHex().left(16));
}

bool RaiseRunningInstance(const QString& name) {
  QLocalSocket socket;
  socket.connectToServer(name);
  if (!socket.waitForConnected(500)) return false;
  socket.write("raise\n");
  socket.waitForBytesWritten(500);
  return true;
}

// The installed share folder, else the source tree's data folder.
std::string DataFolder() {
  const QString installed = QCoreApplication::applicationDirPath() + "/../share/norvane";
  if (QDir(installed + "/skins").exists()) return QDir(installed).absolutePath().toStdString();
  return NORVANE_SOURCE_DATA;
}

// The window's own settings beside the tracker's: the zoom and the element-set server.
QString WindowSettingsPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Norvane/Window.ini";
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Norvane");
  // Numbers in texts and edits always use a decimal point, whatever the user's locale.
  std::setlocale(LC_NUMERIC, "C");
  std::vector<std::string> args;
  for (const QString& a : QApplication::arguments().mid(1)) args.push_back(a.toStdString());
  norvane::ProgramOptions options;
  if (const auto error = norvane::ParseProgramOptions(args, options)) {
    std::fprintf(stderr, "%s\n%s\n", error->c_str(), norvane::kProgramUsage);
    return 2;
  }
  if (options.help) {
    std::printf("%s\n", norvane::kProgramUsage);
    return 0;
  }

  const std::string dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
  const std::string folder = norvane::ProgramFolder(std::getenv("NORVANE_HOME"), dataHome);
  const QString instance = InstanceName(folder);
  if (RaiseRunningInstance(instance)) return 0;
  if (!folder.empty()) norvane::SeedProgramFolder(folder, DataFolder());

  QSettings window(WindowSettingsPath(), QSettings::IniFormat);
  int zoom = window.value("zoom", 1).toInt();
  if (options.zoom) zoom = *options.zoom;
  if (zoom < 1 || zoom > 4) zoom = 1;
  window.setValue("zoom", zoom);
  if (options.server) window.setValue("server", QString::fromStdString(*options.server));
  const std::string serverBase = window.value("server", norvane::kDefaultElementServer).toString().toStdString();
  window.sync();

  norvane::QtSettingsStore store;
  norvane::WindowConfig config;
  config.programFolder = folder;
  config.store = &store;
  config.zoom = zoom;
  config.options = options;
  config.serverBase = serverBase;
  config.zoomChanged = [](int chosen) {
    QSettings settings(WindowSettingsPath(), QSettings::IniFormat);
    settings.setValue("zoom", chosen);
  };
  MainWindow main(config);
  main.setZoom(zoom);  // no larger than the screen leaves room for

  QLocalServer server;
  QLocalServer::removeServer(instance);
  server.listen(instance);
  QObject::connect(&server, &QLocalServer::newConnection, &main, [&] {
    while (QLocalSocket* s = server.nextPendingConnection()) s->deleteLater();
    main.showNormal();
    main.raise();
    main.activateWindow();
  });

  main.show();
  main.startTimer1s();
  return QApplication::exec();
}
