#include "core/elements/element_parser.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace norvane {

namespace {

// The characters of positions [first, last] with every blank removed, ending at
// the first zero byte as the C string the conversion sees would.
std::string fieldText(LineBuffer line, std::size_t first, std::size_t last) {
  std::string text;
  for (std::size_t i = first; i <= last; ++i) {
    const char c = i < line.size() ? line[i] : '\0';
    if (c == '\0') break;
    if (c != ' ') text.push_back(c);
  }
  return text;
}

// sscanf of one field into an integer that keeps its value when the
// conversion fails (the field is at most eight characters: no overflow).
void scanInt(LineBuffer line, std::size_t first, std::size_t last, const char* format,
             int& value) {
  const std::string text = fieldText(line, first, last);
  std::sscanf(text.c_str(), format, &value);
}

// The parser's running integer: most steps reset it before converting,
// the "keep" steps convert on top of the previous step's value.
struct Scanner {
  LineBuffer line;
  int& value;
  int reset(std::size_t first, std::size_t last, const char* format = "%d") {
    value = 0;
    return keep(first, last, format);
  }
  int keep(std::size_t first, std::size_t last, const char* format = "%d") {
    scanInt(line, first, last, format, value);
    return value;
  }
};

void readLine1(Satellite& sat, LineBuffer line1, int& value) {
  Scanner s{line1, value};
  sat.catnr = s.reset(2, 7, "%6d");
  if (const int alpha5 = alpha5CatalogueNumber(fieldText(line1, 2, 7)); alpha5 != 0) {
    sat.catnr = alpha5;
  }
  sat.epoch = s.reset(18, 23, "%5d");
  sat.epoch += s.reset(25, 32, "%8d") / 1e8;
  sat.elset = s.reset(64, 67);
  const int mantissa = s.reset(55, 59);
  const int exponent = s.keep(60, 61);
  sat.bstar = mantissa * std::pow(10.0, exponent - 5);
}

void readLine2(Satellite& sat, LineBuffer line2, int& value) {
  Scanner s{line2, value};
  sat.xincl = s.reset(8, 10);
  sat.xincl += s.keep(12, 15) / 10000.0;
  sat.xnodeo = s.reset(17, 19);
  sat.xnodeo += s.keep(21, 24) / 10000.0;
  sat.eo = 1e-7 * s.reset(26, 32);
  sat.omegao = s.reset(34, 36);
  sat.omegao += s.keep(38, 41) / 10000.0;
  float meanAnomaly = 0.0f;
  std::sscanf(fieldText(line2, 43, 50).c_str(), "%f", &meanAnomaly);
  sat.xmo = static_cast<double>(meanAnomaly);
  sat.xno = s.reset(52, 53);
  sat.xno += s.keep(55, 62) / 1e8;
}

void readDerivativeAndRevnum(Satellite& sat, LineBuffer line1, int& value) {
  Scanner s{line1, value};
  sat.xndt2o = s.reset(34, 34);  // the sign column: never a number
  sat.xndt2o += s.keep(36, 43) / 1e8;
  sat.revnum = s.keep(63, 68);
}

}  // namespace

int alpha5CatalogueNumber(std::string_view text) {
  if (text.size() != 5) return 0;
  const char letter = text[0];
  if (letter < 'A' || letter > 'Z' || letter == 'I' || letter == 'O') return 0;
  int digits = 0;
  for (std::size_t i = 1; i < 5; ++i) {
    if (text[i] < '0' || text[i] > '9') return 0;
    digits = digits * 10 + (text[i] - '0');
  }
  int letterValue = 10 + (letter - 'A');
  if (letter > 'I') --letterValue;
  if (letter > 'O') --letterValue;
  return letterValue * 10000 + digits;
}

bool parseElementSet(Catalogue& catalogue, LineBuffer nameLine, LineBuffer line1,
                     LineBuffer line2, int slot) {
  if (slot < 0 || slot >= kCatalogueSlots) return false;
  Satellite& sat = catalogue.satellites[static_cast<std::size_t>(slot)];
  sat.name.fill('\0');
  for (std::size_t i = 0; i < sat.name.size() && i < nameLine.size(); ++i) {
    sat.name[i] = nameLine[i];
  }
  int value = 0;
  readLine1(sat, line1, value);
  readLine2(sat, line2, value);
  readDerivativeAndRevnum(sat, line1, value);
  return sat.catnr != 0;
}

void loadBlankSatellite(Catalogue& catalogue) {
  static constexpr char kName[] = "No satellite ";
  static constexpr char kLine1[] =
      "1 00000U 00000A   00000.00000000  .00000000  00000-0  00000-3 0  0000";
  static constexpr char kLine2[] =
      "2 00000  00.0000  00.0000 0000000 000.0000 000.0000 00.00000000000000";
  parseElementSet(catalogue, kName, kLine1, kLine2, 0);
}

}  // namespace norvane
