#pragma once
#include <QNetworkAccessManager>
#include <QString>
#include <memory>

#include "download/http_client.h"
#include "download/http_timeouts.h"

class QCoreApplication;

namespace norvane {

// HttpClient over QNetworkAccessManager. Each get runs a local event loop until
// the reply ends, maxBytes have arrived or a time-out fires; redirects are
// followed (never from HTTPS to HTTP). Creates a QCoreApplication when the
// program has none.
class QtHttpClient : public HttpClient {
 public:
  explicit QtHttpClient(const HttpTimeouts& timeouts = {});
  ~QtHttpClient() override;

  bool open(const std::string& userAgent) override;
  HttpResponse get(const std::string& url, std::size_t maxBytes) override;

 private:
  HttpTimeouts timeouts_;
  std::unique_ptr<QCoreApplication> ownApplication_;
  std::unique_ptr<QNetworkAccessManager> manager_;
  QString userAgent_;
};

}  // namespace norvane
