#include "download/element_download.h"

#include <algorithm>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>

#include "core/elements/element_file.h"
#include "core/elements/element_text.h"
#include "core/platform/atomic_file.h"
#include "core/text/format.h"
#include "download/categories.h"
#include "download/download_texts.h"
#include "download/fetch_log.h"
#include "settings/settings_io.h"

namespace norvane {

namespace {

void setIridiumMark(int row, DownloadTarget& target) {
  if (row == kIridiumCategory) {
    target.iridiumMark = 1;
  } else {
    target.iridiumMark = 0;
    target.settings.flares = 0;  // in memory only; the next settings save keeps it
  }
}

UnixSeconds timeNow(const DownloadContext& context) {
  return context.now ? context.now() : static_cast<UnixSeconds>(std::time(nullptr));
}

// The part of a text that is loaded: element text is cut at its one read.
std::string_view loadablePart(std::string_view text, ElementFormat format) {
  return format == ElementFormat::Tle ? text.substr(0, kDownloadMaxBytes) : text;
}

// What a text yields, judged on a scratch catalogue.
ElementLoad yieldOf(std::string_view text) {
  auto scratch = std::make_unique<Catalogue>();
  return loadElements(*scratch, loadablePart(text, detectElementFormat(text)));
}

// The saved copy, as much of it as is ever loaded; nothing when it cannot be
// read or yields no element sets (it would only empty the catalogue).
std::optional<std::string> readSavedCopy(const std::string& path) {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in) return std::nullopt;
  const std::streamoff size = in.tellg();
  in.seekg(0);
  if (size <= 0 || !in) return std::nullopt;
  std::string text(std::min(static_cast<std::size_t>(size), kMaxOmmBytes), '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (in.bad()) return std::nullopt;
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (yieldOf(text).count == 0) return std::nullopt;
  return text;
}

// One download's course: the context, the target and what is known so far.
class Download {
 public:
  Download(int row, DownloadContext& context, DownloadTarget& target)
      : row_(row), fileName_(categories()[static_cast<std::size_t>(row)].fileName), context_(context), target_(target) {}

  DownloadResult run();

 private:
  bool tooSoon() const { return now_ < nextRequest(); }
  UnixSeconds nextRequest() const {
    if (!logged_) return 0;
    const UnixSeconds afterFetch = record_.fetchedAt == 0 ? 0 : record_.fetchedAt + kRefetchSeconds;
    return std::max(afterFetch, record_.retryAfter);
  }
  // Stores this URL's record; the file is read again first, so that what
  // another program wrote meanwhile about other URLs is kept.
  void remember() {
    if (!logged_) return;
    FetchLog log = loadFetchLog(context_.fetchLogPath);
    log[result_.url] = record_;
    saveFetchLog(context_.fetchLogPath, std::move(log));
  }
  DownloadResult& fail(DownloadStatus status, const std::string& text, const std::string& title) {
    context_.messages.show(text, title, MessageIcon::Stop);
    result_.status = status;
    return result_;
  }
  DownloadResult& loadSavedCopy(const std::string& why);
  DownloadResult& judgeStatus(const HttpResponse& response);
  DownloadResult& takeBody(const HttpResponse& response);
  HttpRequest request() const;

  int row_;
  std::string_view fileName_;
  DownloadContext& context_;
  DownloadTarget& target_;
  DownloadResult result_;
  UnixSeconds now_ = 0;
  bool logged_ = false;
  FetchRecord record_;
  std::optional<std::string> saved_;  // the saved copy, when there is one
};

DownloadResult Download::run() {
  if (!context_.http.open(std::string(kDownloadUserAgent))) {
    return fail(DownloadStatus::NoInternet, "Can't connect to Internet!", "");
  }
  result_.url = categoryUrl(context_.serverBase, fileName_);
  result_.path = downloadPath(context_.documentsFolder, fileName_);
  // The mark follows the row chosen, whatever the server then does.
  setIridiumMark(row_, target_);
  now_ = timeNow(context_);
  logged_ = !context_.fetchLogPath.empty();
  if (logged_) {
    const FetchLog log = loadFetchLog(context_.fetchLogPath);
    if (const auto it = log.find(result_.url); it != log.end()) record_ = it->second;
  }
  saved_ = readSavedCopy(result_.path);
  if (tooSoon()) {
    result_.nextRequest = nextRequest();
    if (!saved_) {
      return fail(DownloadStatus::Waiting, notSentText(result_.url, record_, now_, result_.nextRequest, false), "Download");
    }
    return loadSavedCopy(notSentText(result_.url, record_, now_, result_.nextRequest, true));
  }

  const HttpResponse response = context_.http.fetch(request());
  switch (response.outcome) {
    case HttpOutcome::Cancelled:
      result_.status = DownloadStatus::Cancelled;
      return result_;
    case HttpOutcome::NoConnection:
      return fail(DownloadStatus::NoUrl, "Can't connect to url!", result_.url);
    case HttpOutcome::ReadFailed:
      return fail(DownloadStatus::ReadError, "Error reading data!", result_.url);
    case HttpOutcome::Status:
      return judgeStatus(response);
    case HttpOutcome::Received:
      break;
  }
  return takeBody(response);
}

HttpRequest Download::request() const {
  HttpRequest request;
  request.url = result_.url;
  request.maxBytes = kMaxOmmBytes;
  request.keepStatus = true;
  request.progress = context_.progress;
  // Validators only make sense while the copy they describe is there.
  if (saved_) {
    if (!record_.lastModified.empty()) request.headers.emplace_back("If-Modified-Since", record_.lastModified);
    if (!record_.etag.empty()) request.headers.emplace_back("If-None-Match", record_.etag);
  }
  return request;
}

DownloadResult& Download::judgeStatus(const HttpResponse& response) {
  if (response.status == 304 && saved_) {
    record_.fetchedAt = now_;
    remember();
    result_.nextRequest = nextRequest();
    return loadSavedCopy(notModifiedText(result_.url));
  }
  if (response.status == 403 || response.status == 429) {
    record_.retryAfter = retryAfterTime(response.retryAfter, now_).value_or(now_ + kRefetchSeconds);
    remember();
    result_.nextRequest = record_.retryAfter;
    return fail(DownloadStatus::Refused, refusedText(result_.url, response.status, record_.retryAfter),
                "Download refused");
  }
  return fail(DownloadStatus::NoUrl, "Can't connect to url!", result_.url);
}

DownloadResult& Download::takeBody(const HttpResponse& response) {
  // The server has answered: asking again soon would only be refused.
  record_.fetchedAt = now_;
  const ElementLoad yield = yieldOf(response.body);
  const bool cutOmm = yield.format != ElementFormat::Tle && response.truncated;
  if (yield.count == 0 || cutOmm) {
    remember();
    result_.nextRequest = nextRequest();
    return fail(DownloadStatus::Unusable,
                unusableReplyText(result_.url, response.contentType, response.body, cutOmm), "Download");
  }
  const std::string_view body = loadablePart(response.body, yield.format);
  result_.fetched = true;
  const ElementLoad load = readElements(target_.catalogue, context_.messages, body, result_.url);
  result_.format = load.format;
  result_.skipped = load.skipped;
  result_.count = load.count;
  if (saveDownloadedData(context_, target_.settings, fileName_, body) == 0) {
    remember();
    context_.messages.show("Error saving data to My Documents!", "Save error", MessageIcon::Stop);
    result_.status = DownloadStatus::LoadedNotSaved;
    return result_;
  }
  record_.lastModified = response.lastModified;
  record_.etag = response.etag;
  remember();
  result_.nextRequest = nextRequest();
  result_.status = DownloadStatus::Saved;
  return result_;
}

DownloadResult& Download::loadSavedCopy(const std::string& why) {
  context_.messages.show(why, "Download", MessageIcon::Information);
  const ElementLoad load = readElements(target_.catalogue, context_.messages,
                                        loadablePart(*saved_, detectElementFormat(*saved_)), result_.path);
  result_.format = load.format;
  result_.skipped = load.skipped;
  result_.count = load.count;
  target_.settings.lastOpen = result_.path;
  saveLastFileGroup(target_.settings, context_.store);
  result_.status = DownloadStatus::SavedCopy;
  return result_;
}

}  // namespace

std::string downloadPath(std::string_view documentsFolder, std::string_view fileName) {
  std::string folder(documentsFolder);
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder + format("%s.txt", std::string(fileName).c_str());
}

int saveDownloadedData(DownloadContext& context, Settings& settings, std::string_view fileName,
                       std::string_view bytes) {
  settings.lastOpen = downloadPath(context.documentsFolder, fileName);
  saveLastFileGroup(settings, context.store);
  switch (replaceFile(settings.lastOpen, bytes)) {
    case FileWrite::Written:
      return 1;
    case FileWrite::CannotOpen:
      context.messages.show("I can't open the file!", "", MessageIcon::Stop);
      return 0;
    case FileWrite::WriteFailed:
      context.messages.show("Save failed!", "", MessageIcon::Stop);
      return 0;
  }
  return 0;
}

DownloadResult downloadCategory(int row, DownloadContext& context, DownloadTarget& target) {
  if (row < 0 || row >= kCategoryCount) return {};
  return Download(row, context, target).run();
}

}  // namespace norvane
