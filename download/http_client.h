#pragma once
#include <cstddef>
#include <string>

namespace norvane {

// How one HTTP fetch ended.
enum class HttpOutcome {
  Received,      // the body, or its first maxBytes bytes
  NoConnection,  // refused, dropped or timed out before the response, or a status of 400 or more
  ReadFailed,    // the response began but its body broke off or stalled
};

struct HttpResponse {
  HttpOutcome outcome = HttpOutcome::NoConnection;
  std::string body;  // never longer than the maxBytes asked for
};

// Fetches URLs over HTTP or HTTPS, following redirects.
class HttpClient {
 public:
  virtual ~HttpClient() = default;
  // Starts a session that sends this user agent; false when no session can be had.
  virtual bool open(const std::string& userAgent) = 0;
  // GETs the URL bypassing any cache and keeps at most maxBytes of the body.
  virtual HttpResponse get(const std::string& url, std::size_t maxBytes) = 0;
};

}  // namespace norvane
