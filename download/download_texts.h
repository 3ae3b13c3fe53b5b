#pragma once
#include <string>
#include <string_view>

#include "download/fetch_log.h"
#include "download/http_time.h"

namespace norvane {

// The messages of the element server's etiquette and of unusable replies.

// Why a URL was not asked again now (record: its last fetch and any wait the
// server asked for), what happens instead (the saved copy is loaded, or there
// is no usable one) and when it will be asked again (next).
std::string notSentText(const std::string& url, const FetchRecord& record, UnixSeconds now, UnixSeconds next,
                        bool hasSavedCopy);

// A 304 answer: the saved copy is current.
std::string notModifiedText(const std::string& url);

// A 403 or 429 answer, and when a new request is possible.
std::string refusedText(const std::string& url, int status, UnixSeconds retryAt);

// A reply without element sets: its content type, size and first bytes shown
// printable. cut: an OMM text longer than the reader takes.
std::string unusableReplyText(const std::string& url, std::string_view contentType, std::string_view body, bool cut);

// At most maxBytes of text with every byte outside printable ASCII shown as
// '.', and white space runs as one blank.
std::string printablePrefix(std::string_view text, std::size_t maxBytes);

}  // namespace norvane
