#pragma once
#include <memory>
#include <string>

#include "download/http_client.h"
#include "download/http_timeouts.h"

namespace norvane {

// The platform's HTTP client (Qt's network access when the program is built
// with Qt, otherwise one whose session never opens).
std::unique_ptr<HttpClient> makePlatformHttpClient(const HttpTimeouts& timeouts = {});

// The user's documents folder, where downloaded element files are kept.
std::string documentsFolder();

// The element-set server used when none is configured.
inline constexpr const char* kDefaultElementServer = "https://celestrak.org";

}  // namespace norvane
