#pragma once
#include <QNetworkAccessManager>
#include <QString>
#include <memory>

#include "download/http_client.h"
#include "download/http_timeouts.h"

class QCoreApplication;
class QEventLoop;

namespace norvane {

// HttpClient over QNetworkAccessManager. Each fetch runs a local event loop
// until the reply ends, maxBytes have arrived, a time-out fires or cancel() is
// called from an event of that loop; redirects are followed (never from HTTPS
// to HTTP). Creates a QCoreApplication when the program has none.
class QtHttpClient : public HttpClient {
 public:
  explicit QtHttpClient(const HttpTimeouts& timeouts = {});
  ~QtHttpClient() override;

  bool open(const std::string& userAgent) override;
  HttpResponse fetch(const HttpRequest& request) override;
  void cancel() override;

 private:
  HttpTimeouts timeouts_;
  std::unique_ptr<QCoreApplication> ownApplication_;
  std::unique_ptr<QNetworkAccessManager> manager_;
  QString userAgent_;
  bool* cancelFlag_ = nullptr;     // the running fetch's, while one runs
  QEventLoop* activeLoop_ = nullptr;
};

}  // namespace norvane
