#pragma once
#include <cstdio>
#include <memory>
#include <string>

#include "cli/args.h"
#include "core/elements/element_file.h"

namespace norvane::cli {

// Loads --tle through openElementFile; its error texts go to stderr, and a
// file that cannot be opened is an InputError.
inline std::unique_ptr<Catalogue> catalogueFrom(const Args& args) {
  struct ErrorSink : MessageSink {
    void show(const std::string& text, const std::string&, MessageIcon icon) override {
      if (icon == MessageIcon::Stop) std::fprintf(stderr, "%s\n", text.c_str());
    }
  } sink;
  auto catalogue = std::make_unique<Catalogue>();
  const std::string path = required(args, "tle");
  if (!openElementFile(*catalogue, sink, path)) throw InputError{"cannot open " + path};
  return catalogue;
}

}  // namespace norvane::cli
