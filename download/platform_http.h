#pragma once
#include <memory>
#include <string>

#include "download/http_client.h"
#include "download/element_source.h"
#include "download/http_timeouts.h"

namespace norvane {

// The platform's HTTP client (Qt's network access when the program is built
// with Qt, otherwise one whose session never opens).
std::unique_ptr<HttpClient> makePlatformHttpClient(const HttpTimeouts& timeouts = {});

// The user's documents folder, where downloaded element files are kept.
std::string documentsFolder();

// The program folder: NORVANE_HOME when set, else "Norvane" in the user's data folder.
std::string programFolder();

}  // namespace norvane
