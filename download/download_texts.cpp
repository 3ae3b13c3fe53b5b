#include "download/download_texts.h"

#include "core/elements/element_formats.h"
#include "core/text/format.h"

namespace norvane {

namespace {

constexpr std::size_t kShownBytes = 60;
constexpr std::size_t kShownTypeBytes = 80;

std::string twoHourRule() { return "the element server allows one download of a file every two hours"; }

}  // namespace

std::string printablePrefix(std::string_view text, std::size_t maxBytes) {
  std::string shown;
  bool blank = false;
  for (std::size_t i = 0; i < text.size() && i < maxBytes; ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      if (!blank) shown += ' ';
      blank = true;
      continue;
    }
    blank = false;
    shown += c >= 0x21 && c < 0x7f ? static_cast<char>(c) : '.';
  }
  if (text.size() > maxBytes) shown += "...";
  return shown;
}

std::string notSentText(const std::string& url, const FetchRecord& record, UnixSeconds now, UnixSeconds next,
                        bool hasSavedCopy) {
  std::string text = "Not downloaded again: " + url;
  if (record.retryAfter > now) {
    text += " was refused, and the server asked to wait until " + formatUtcMinute(record.retryAfter) + ".";
  } else {
    text += " was downloaded at " + formatUtcMinute(record.fetchedAt) + ", and " + twoHourRule() + ".";
  }
  text += hasSavedCopy ? " The saved copy is loaded." : " There is no usable saved copy to load.";
  text += " A new download is possible after " + formatUtcMinute(next) + ".";
  return text;
}

std::string notModifiedText(const std::string& url) {
  return "The element server has nothing newer at " + url + " than the saved copy, which is loaded.";
}

std::string refusedText(const std::string& url, int status, UnixSeconds retryAt) {
  return format("The element server refused the download of %s (HTTP %d): ", url.c_str(), status) + twoHourRule() +
         ". The saved copy is kept. A new download is possible after " + formatUtcMinute(retryAt) + ".";
}

std::string unusableReplyText(const std::string& url, std::string_view contentType, std::string_view body, bool cut) {
  std::string text = "No element sets in the reply from " + url + ": ";
  const std::string type = contentType.empty() ? "no content type" : printablePrefix(contentType, kShownTypeBytes);
  if (cut) {
    text += format("%s, more than %zu bytes, too long to read whole", type.c_str(), kMaxOmmBytes);
  } else if (body.empty()) {
    text += type + ", an empty body";
  } else {
    text += format("%s, %zu bytes: \"", type.c_str(), body.size()) + printablePrefix(body, kShownBytes) + "\"";
  }
  return text + ". The saved copy is kept.";
}

}  // namespace norvane
