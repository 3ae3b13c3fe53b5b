#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace norvane {

// How one HTTP fetch ended.
enum class HttpOutcome {
  Received,      // a 2xx answer with its whole body, or its first maxBytes bytes
  NoConnection,  // refused, dropped or timed out before the response, or a status of 400 or more
  ReadFailed,    // the response began but its body broke off or stalled
  Status,        // a final answer other than 2xx the caller asked to see (see HttpRequest::keepStatus)
  Cancelled,     // cancel() was called, or the program is quitting: nothing usable arrived
};

struct HttpRequest {
  std::string url;
  std::size_t maxBytes = 0;
  std::vector<std::pair<std::string, std::string>> headers;  // sent besides the user agent
  // Answers 304 and 400 or more come back as Status, with their headers,
  // instead of counting as NoConnection.
  bool keepStatus = false;
  // Told the number of body bytes received so far, as they arrive.
  std::function<void(std::size_t)> progress;
};

struct HttpResponse {
  HttpOutcome outcome = HttpOutcome::NoConnection;
  std::string body;         // never longer than the maxBytes asked for
  int status = 0;           // the final HTTP status when one arrived
  bool truncated = false;   // the body went on beyond maxBytes
  std::string contentType;  // headers of the final answer, empty when absent
  std::string lastModified;
  std::string etag;
  std::string retryAfter;
};

// Fetches URLs over HTTP or HTTPS, following redirects.
class HttpClient {
 public:
  virtual ~HttpClient() = default;
  // Starts a session that sends this user agent; false when no session can be had.
  virtual bool open(const std::string& userAgent) = 0;
  // Runs one GET bypassing any cache; returns when it has ended.
  virtual HttpResponse fetch(const HttpRequest& request) = 0;
  // Ends the fetch in progress, if any, which then returns Cancelled. Called
  // from the thread that runs fetch, from an event handled while it waits.
  virtual void cancel() {}

  // A plain GET that keeps at most maxBytes of the body.
  HttpResponse get(const std::string& url, std::size_t maxBytes) {
    HttpRequest request;
    request.url = url;
    request.maxBytes = maxBytes;
    return fetch(request);
  }
};

}  // namespace norvane
