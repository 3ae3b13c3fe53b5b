#include "core/elements/element_file.h"

#include <cstdio>
#include <memory>

#include "core/elements/element_text.h"

namespace norvane {

namespace {
struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
}  // namespace

int readElementFile(Catalogue& catalogue, MessageSink& messages, std::string_view text,
                    const std::string& path) {
  const int count = loadElementText(catalogue, text);
  char message[512];
  std::snprintf(message, sizeof message, "Data of %d satellites successfully read from %s.", count,
                path.c_str());
  messages.show(message, "Info.", MessageIcon::Information);
  return count;
}

bool openElementFile(Catalogue& catalogue, MessageSink& messages, const std::string& path) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) {
    messages.show("I can't open the file!", "", MessageIcon::Stop);
    return false;
  }
  std::string buffer(kMaxElementFileBytes, '\0');
  const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.get());
  if (std::ferror(file.get())) messages.show("Read failed!", "", MessageIcon::Stop);
  buffer.resize(got);
  readElementFile(catalogue, messages, buffer, path);
  return true;
}

}  // namespace norvane
