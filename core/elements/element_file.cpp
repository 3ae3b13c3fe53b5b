#include "core/elements/element_file.h"

#include <memory>

#include "core/text/format.h"

namespace norvane {

namespace {
struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
}  // namespace

std::string withSkippedLine(std::string message, int skipped) {
  if (skipped == 1) message += "\n1 record was skipped: a required field was missing or unreadable.";
  if (skipped > 1) message += format("\n%d records were skipped: a required field was missing or unreadable.", skipped);
  return message;
}

ElementLoad readElements(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                         const std::string& path) {
  const ElementLoad load = loadElements(catalogue, text);
  char message[512];
  std::snprintf(message, sizeof message, "Data of %d satellites successfully read from %s.", load.count,
                path.c_str());
  messages.show(withSkippedLine(message, load.skipped), "Info.", MessageIcon::Information);
  return load;
}

int readElementFile(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path) {
  return readElements(catalogue, messages, text, path).count;
}

bool readElementBytes(std::FILE* file, std::string& text) {
  text.assign(kMaxOmmBytes, '\0');
  const std::size_t got = std::fread(text.data(), 1, text.size(), file);
  const bool failed = std::ferror(file) != 0;
  text.resize(got);
  if (detectElementFormat(text) == ElementFormat::Tle && text.size() > kMaxElementFileBytes) {
    text.resize(kMaxElementFileBytes);
  }
  text.shrink_to_fit();
  return !failed;
}

bool openElementFile(Catalogue& catalogue, MessageSink& messages, const std::string& path, ElementLoad* load) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) {
    messages.show("I can't open the file!", "", MessageIcon::Stop);
    return false;
  }
  std::string buffer;
  if (!readElementBytes(file.get(), buffer)) messages.show("Read failed!", "", MessageIcon::Stop);
  const ElementLoad found = readElements(catalogue, messages, buffer, path);
  if (load != nullptr) *load = found;
  return true;
}

}  // namespace norvane
