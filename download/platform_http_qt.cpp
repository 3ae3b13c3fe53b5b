#include <QDir>
#include <QStandardPaths>

#include "download/platform_http.h"
#include "download/qt_http_client.h"

namespace norvane {

std::unique_ptr<HttpClient> makePlatformHttpClient(const HttpTimeouts& timeouts) {
  return std::make_unique<QtHttpClient>(timeouts);
}

std::string documentsFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  QDir().mkpath(folder);  // a fresh account may have none yet
  return folder.toStdString();
}

std::string programFolder() {
  const QByteArray home = qgetenv("NORVANE_HOME");
  if (!home.isEmpty()) return home.toStdString();
  return (QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Norvane").toStdString();
}

}  // namespace norvane
