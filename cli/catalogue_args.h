#pragma once
#include <memory>
#include <string>

#include "cli/args.h"
#include "cli/message_capture.h"
#include "core/elements/element_file.h"

namespace norvane::cli {

// Loads --tle through openElementFile. Error texts go to stderr; a file that
// cannot be opened is an InputError carrying "I can't open the file!". The
// load's information text lands in *message, and what it found in *load,
// when asked for.
inline std::unique_ptr<Catalogue> catalogueFrom(const Args& args, std::string* message = nullptr,
                                                ElementLoad* load = nullptr) {
  auto catalogue = std::make_unique<Catalogue>();
  const std::string path = required(args, "tle");
  MessageCapture sink;
  const bool opened = openElementFile(*catalogue, sink, path, load);
  if (!opened) throw InputError{sink.errors.empty() ? "cannot open " + path : sink.errors.front()};
  sink.printErrors();
  if (message != nullptr) *message = sink.information;
  return catalogue;
}

}  // namespace norvane::cli
