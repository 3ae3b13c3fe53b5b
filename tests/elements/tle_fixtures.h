#pragma once
#include <cstdio>
#include <string>

namespace norvane::test {

// The ISS entry with its name padded to the usual 24 characters, CRLF line ends.
inline const std::string kIssName = "ISS (ZARYA)             ";
inline const std::string kIssLine1 =
    "1 25544U 98067A   08264.51782528 -.00002182  00000-0 -11606-4 0  2927";
inline const std::string kIssLine2 =
    "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.72125391563537";

inline std::string issEntry(const std::string& name = kIssName, const char* eol = "\r\n") {
  return name + eol + kIssLine1 + eol + kIssLine2 + eol;
}

// The ISS entry under another catalogue number, so entries can be told apart.
inline std::string numberedEntry(int catnr) {
  char number[8];
  std::snprintf(number, sizeof number, "%05d", catnr);
  std::string line1 = kIssLine1, line2 = kIssLine2;
  line1.replace(2, 5, number);
  line2.replace(2, 5, number);
  return kIssName + "\r\n" + line1 + "\r\n" + line2 + "\r\n";
}

}  // namespace norvane::test
