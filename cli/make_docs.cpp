// Writes norvane.1, norvane-cli.1 and the bash completion of norvane-cli into
// a folder; run by the build. usage: make_docs OUT-DIR VERSION DATA-FOLDER
#include <cstdio>
#include <fstream>
#include <string>

#include "cli/reference_docs.h"

namespace {

bool writeFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make_docs OUT-DIR VERSION DATA-FOLDER\n", stderr);
    return 2;
  }
  const std::string dir = argv[1];
  const norvane::cli::DocsContext context{argv[2], argv[3]};
  const bool written = writeFile(dir + "/norvane.1", norvane::cli::windowManualPage(context)) &&
                       writeFile(dir + "/norvane-cli.1", norvane::cli::cliManualPage(context)) &&
                       writeFile(dir + "/norvane-cli", norvane::cli::cliBashCompletion());
  if (!written) std::fprintf(stderr, "make_docs: cannot write into %s\n", dir.c_str());
  return written ? 0 : 1;
}
