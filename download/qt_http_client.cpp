#include "download/qt_http_client.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

namespace norvane {

namespace {

int statusOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool isFinalAnswer(int status) { return status >= 200 && status < 300; }

QNetworkRequest requestFor(const QUrl& url, const QString& userAgent) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  return request;
}

bool usableUrl(const QUrl& url) {
  const QString scheme = url.scheme().toLower();
  return url.isValid() && !url.host().isEmpty() && (scheme == "http" || scheme == "https");
}

// One reply followed to its end, its byte limit or a time-out.
struct Fetch {
  QNetworkReply& reply;
  std::size_t maxBytes;
  QByteArray body;
  bool answered = false;  // a 2xx status arrived
  bool timedOut = false;
  bool full = false;

  void take() {
    const auto room = static_cast<qint64>(maxBytes) - body.size();
    if (room > 0) body += reply.read(room);
    if (static_cast<std::size_t>(body.size()) >= maxBytes) full = true;
  }
};

void runUntilDone(Fetch& fetch, const HttpTimeouts& timeouts) {
  QEventLoop loop;
  QTimer stall;
  QTimer total;
  stall.setSingleShot(true);
  total.setSingleShot(true);
  QObject::connect(&fetch.reply, &QNetworkReply::metaDataChanged, &loop, [&] {
    if (isFinalAnswer(statusOf(fetch.reply))) fetch.answered = true;
    if (fetch.answered) stall.start(timeouts.idleMs);
  });
  QObject::connect(&fetch.reply, &QIODevice::readyRead, &loop, [&] {
    stall.start(timeouts.idleMs);
    fetch.take();
    if (fetch.full) loop.quit();
  });
  QObject::connect(&fetch.reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
  const auto expire = [&] {
    fetch.timedOut = true;
    loop.quit();
  };
  QObject::connect(&stall, &QTimer::timeout, &loop, expire);
  QObject::connect(&total, &QTimer::timeout, &loop, expire);
  stall.start(timeouts.responseMs);
  total.start(timeouts.totalMs);
  if (!fetch.reply.isFinished()) loop.exec();
  QObject::disconnect(&fetch.reply, nullptr, &loop, nullptr);
}

HttpOutcome outcomeOf(Fetch& fetch) {
  if (fetch.full) return HttpOutcome::Received;
  if (fetch.timedOut) return fetch.answered ? HttpOutcome::ReadFailed : HttpOutcome::NoConnection;
  const int status = statusOf(fetch.reply);
  if (fetch.reply.error() == QNetworkReply::NoError && isFinalAnswer(status)) {
    fetch.take();
    return HttpOutcome::Received;
  }
  // An answer that broke off is a read failure; anything before it a failed connection.
  return isFinalAnswer(status) && fetch.answered ? HttpOutcome::ReadFailed : HttpOutcome::NoConnection;
}

}  // namespace

QtHttpClient::QtHttpClient(const HttpTimeouts& timeouts) : timeouts_(timeouts) {}

QtHttpClient::~QtHttpClient() = default;

bool QtHttpClient::open(const std::string& userAgent) {
  if (QCoreApplication::instance() == nullptr) {
    static int argc = 1;
    static char name[] = "norvane";
    static char* argv[] = {name, nullptr};
    ownApplication_ = std::make_unique<QCoreApplication>(argc, argv);
  }
  if (!manager_) {
    manager_ = std::make_unique<QNetworkAccessManager>();
    manager_->setProxy(QNetworkProxy::NoProxy);  // direct connections only
  }
  userAgent_ = QString::fromStdString(userAgent);
  return true;
}

HttpResponse QtHttpClient::get(const std::string& url, std::size_t maxBytes) {
  HttpResponse response;
  const QUrl target(QString::fromStdString(url), QUrl::StrictMode);
  if (!manager_ || !usableUrl(target)) return response;
  std::unique_ptr<QNetworkReply> reply(manager_->get(requestFor(target, userAgent_)));
  Fetch fetch{*reply, maxBytes, {}};
  runUntilDone(fetch, timeouts_);
  response.outcome = outcomeOf(fetch);
  if (!reply->isFinished()) reply->abort();
  if (response.outcome == HttpOutcome::Received) response.body.assign(fetch.body.constData(), static_cast<std::size_t>(fetch.body.size()));
  return response;
}

}  // namespace norvane
