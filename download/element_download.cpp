#include "download/element_download.h"

#include "core/text/format.h"

#include <cstdio>
#include <string>

#include "core/elements/element_file.h"
#include "core/platform/atomic_file.h"
#include "download/categories.h"
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

}  // namespace

std::string categoryUrl(std::string_view serverBase, std::string_view fileName) {
  while (!serverBase.empty() && serverBase.back() == '/') serverBase.remove_suffix(1);
  return std::string(serverBase) + format("/NORAD/elements/%s.txt", std::string(fileName).c_str());
}

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
  DownloadResult result;
  if (row < 0 || row >= kCategoryCount) return result;
  const Category& category = categories()[static_cast<std::size_t>(row)];
  if (!context.http.open(std::string(kDownloadUserAgent))) {
    context.messages.show("Can't connect to Internet!", "", MessageIcon::Stop);
    result.status = DownloadStatus::NoInternet;
    return result;
  }
  result.url = categoryUrl(context.serverBase, category.fileName);
  result.path = downloadPath(context.documentsFolder, category.fileName);
  setIridiumMark(row, target);

  HttpRequest request;
  request.url = result.url;
  request.maxBytes = kDownloadMaxBytes;
  request.progress = context.progress;
  const HttpResponse response = context.http.fetch(request);
  if (response.outcome == HttpOutcome::Cancelled) {
    result.status = DownloadStatus::Cancelled;
    return result;
  }
  if (response.outcome == HttpOutcome::NoConnection) {
    context.messages.show("Can't connect to url!", result.url, MessageIcon::Stop);
    result.status = DownloadStatus::NoUrl;
    return result;
  }
  if (response.outcome == HttpOutcome::ReadFailed) {
    context.messages.show("Error reading data!", result.url, MessageIcon::Stop);
    result.status = DownloadStatus::ReadError;
    return result;
  }
  // The client never hands over more than asked; the cut is repeated here so
  // that no client can make the load or the copy longer.
  const std::string_view body = std::string_view(response.body).substr(0, kDownloadMaxBytes);
  result.count = readElementFile(target.catalogue, context.messages, body, result.url);
  if (saveDownloadedData(context, target.settings, category.fileName, body) == 0) {
    context.messages.show("Error saving data to My Documents!", "Save error", MessageIcon::Stop);
    result.status = DownloadStatus::LoadedNotSaved;
    return result;
  }
  result.status = DownloadStatus::Saved;
  return result;
}

}  // namespace norvane
