#include <QStandardPaths>

#include "download/platform_http.h"
#include "download/qt_http_client.h"

namespace norvane {

std::unique_ptr<HttpClient> makePlatformHttpClient(const HttpTimeouts& timeouts) {
  return std::make_unique<QtHttpClient>(timeouts);
}

std::string documentsFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

}  // namespace norvane
