#pragma once
#include <fstream>
#include <iterator>
#include <string>

namespace norvane::bench {

// The whole of a file in the data folder (NORVANE_DATA_DIR); empty when it cannot be read.
inline std::string DataFileText(const std::string& name) {
  std::ifstream in(std::string(NORVANE_DATA_DIR) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace norvane::bench
