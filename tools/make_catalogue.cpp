// make_catalogue COUNT FILE...: writes to standard output a catalogue of COUNT
// satellites (three-line element text) spread from the element sets of the
// files, about 8 % of them deep space when the files hold deep-space sets.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tools/synthetic_catalogue.h"

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: make_catalogue COUNT FILE...\n");
    return 2;
  }
  const long count = std::strtol(argv[1], nullptr, 10);
  if (count <= 0 || count > 1000000) {
    std::fprintf(stderr, "make_catalogue: COUNT must be 1 to 1000000\n");
    return 2;
  }
  std::vector<norvane::Satellite> templates;
  for (int i = 2; i < argc; ++i) {
    std::ifstream in(argv[i], std::ios::binary);
    if (!in) {
      std::fprintf(stderr, "make_catalogue: cannot read %s\n", argv[i]);
      return 1;
    }
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    for (const norvane::Satellite& s : norvane::readElementSets(text)) templates.push_back(s);
  }
  const std::string text = norvane::elementText(
      norvane::syntheticCatalogue(templates, static_cast<std::size_t>(count), 0.08, 20261123u));
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}
