#include "download/qt_http_client.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <algorithm>

namespace norvane {

namespace {

int statusOf(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool isSuccess(int status) { return status >= 200 && status < 300; }
// 304 and 400 or more: answers a caller may want to judge itself.
bool isReportable(int status) { return status == 304 || status >= 400; }

QNetworkRequest requestFor(const HttpRequest& wanted, const QUrl& url, const QString& userAgent) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  for (const auto& [name, value] : wanted.headers) {
    request.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  return request;
}

bool usableUrl(const QUrl& url) {
  const QString scheme = url.scheme().toLower();
  return url.isValid() && !url.host().isEmpty() && (scheme == "http" || scheme == "https");
}

std::string header(const QNetworkReply& reply, const char* name) {
  return reply.rawHeader(name).toStdString();
}

// One reply followed to its end, its byte limit, a time-out or a cancel.
struct Fetch {
  QNetworkReply& reply;
  const HttpRequest& request;
  QByteArray body;
  bool answered = false;  // a final status arrived
  bool finished = false;
  bool timedOut = false;
  bool cancelled = false;
  bool full = false;      // more than maxBytes arrived

  void take() {
    // One byte beyond the limit tells a body that goes on from one that just fits.
    const auto room = static_cast<qint64>(request.maxBytes) + 1 - body.size();
    if (room > 0) body += reply.read(room);
    if (static_cast<std::size_t>(body.size()) > request.maxBytes) full = true;
    if (request.progress) request.progress(static_cast<std::size_t>(body.size()));
  }
};

void runUntilDone(Fetch& fetch, QEventLoop& loop, const HttpTimeouts& timeouts) {
  QTimer stall;
  QTimer total;
  stall.setSingleShot(true);
  total.setSingleShot(true);
  QObject::connect(&fetch.reply, &QNetworkReply::metaDataChanged, &loop, [&] {
    const int status = statusOf(fetch.reply);
    if (isSuccess(status) || isReportable(status)) fetch.answered = true;
    if (fetch.answered) stall.start(timeouts.idleMs);
  });
  QObject::connect(&fetch.reply, &QIODevice::readyRead, &loop, [&] {
    stall.start(timeouts.idleMs);
    fetch.take();
    if (fetch.full) loop.quit();
  });
  QObject::connect(&fetch.reply, &QNetworkReply::finished, &loop, [&] {
    fetch.finished = true;
    loop.quit();
  });
  const auto expire = [&] {
    fetch.timedOut = true;
    loop.quit();
  };
  QObject::connect(&stall, &QTimer::timeout, &loop, expire);
  QObject::connect(&total, &QTimer::timeout, &loop, expire);
  stall.start(timeouts.responseMs);
  total.start(timeouts.totalMs);
  if (fetch.reply.isFinished()) {
    fetch.finished = true;
  } else {
    loop.exec();
  }
  QObject::disconnect(&fetch.reply, nullptr, &loop, nullptr);
}

HttpOutcome outcomeOf(Fetch& fetch) {
  // The loop also ends when the application quits (every event loop is left
  // then): a body cut off that way is never handed on as if it were whole.
  if (fetch.cancelled || (!fetch.finished && !fetch.full && !fetch.timedOut)) return HttpOutcome::Cancelled;
  const int status = statusOf(fetch.reply);
  if (fetch.full) return isSuccess(status) ? HttpOutcome::Received : HttpOutcome::Status;
  if (fetch.timedOut) return fetch.answered ? HttpOutcome::ReadFailed : HttpOutcome::NoConnection;
  if (fetch.reply.error() == QNetworkReply::OperationCanceledError) return HttpOutcome::Cancelled;
  if (fetch.reply.error() == QNetworkReply::NoError && isSuccess(status)) {
    fetch.take();
    return HttpOutcome::Received;
  }
  if (fetch.answered && isReportable(status)) {
    fetch.take();
    return HttpOutcome::Status;
  }
  // An answer that broke off is a read failure; anything before it a failed connection.
  return isSuccess(status) && fetch.answered ? HttpOutcome::ReadFailed : HttpOutcome::NoConnection;
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

HttpResponse QtHttpClient::fetch(const HttpRequest& request) {
  HttpResponse response;
  const QUrl target(QString::fromStdString(request.url), QUrl::StrictMode);
  if (!manager_ || !usableUrl(target)) return response;
  std::unique_ptr<QNetworkReply> reply(manager_->get(requestFor(request, target, userAgent_)));
  Fetch fetch{*reply, request, {}};
  QEventLoop loop;
  cancelFlag_ = &fetch.cancelled;
  activeLoop_ = &loop;
  runUntilDone(fetch, loop, timeouts_);
  cancelFlag_ = nullptr;
  activeLoop_ = nullptr;
  response.outcome = outcomeOf(fetch);
  if (!reply->isFinished()) reply->abort();
  response.status = statusOf(*reply);
  if (response.outcome == HttpOutcome::Received || response.outcome == HttpOutcome::Status) {
    response.truncated = fetch.full;
    const auto kept = std::min(static_cast<std::size_t>(fetch.body.size()), request.maxBytes);
    response.body.assign(fetch.body.constData(), kept);
    response.contentType = header(*reply, "Content-Type");
    response.lastModified = header(*reply, "Last-Modified");
    response.etag = header(*reply, "ETag");
    response.retryAfter = header(*reply, "Retry-After");
  }
  // Without keepStatus a refusal counts as a failed connection.
  if (response.outcome == HttpOutcome::Status && !request.keepStatus) response = HttpResponse{};
  return response;
}

void QtHttpClient::cancel() {
  if (activeLoop_ == nullptr) return;
  *cancelFlag_ = true;
  activeLoop_->quit();
}

}  // namespace norvane
