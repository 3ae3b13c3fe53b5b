#include "tools/synthetic_catalogue.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <random>

#include "core/elements/catalogue.h"
#include "core/elements/element_list.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {

// Latest epoch as YYDDD.dddddddd together with its Julian date.
struct Epoch {
  double yyddd = 0, jd = 0;
};

Epoch latestEpoch(std::span<const Satellite> sats) {
  Epoch latest;
  for (const Satellite& s : sats) {
    const double jd = epochToJulian(s.epoch);
    if (jd > latest.jd) latest = {s.epoch, jd};
  }
  return latest;
}

// Element text columns: sign and five digits of mantissa, exponent sign and digit.
std::string exponentField(double value) {
  char text[32];
  const double magnitude = std::fabs(value);
  if (magnitude < 1e-10) return value < 0 ? "-00000-0" : " 00000-0";
  int exponent = static_cast<int>(std::floor(std::log10(magnitude))) + 1;
  long mantissa = std::lround(magnitude / std::pow(10.0, exponent) * 1e5);
  if (mantissa >= 100000) {
    mantissa /= 10;
    ++exponent;
  }
  std::snprintf(text, sizeof text, "%c%05ld%c%d", value < 0 ? '-' : ' ', mantissa, exponent < 0 ? '-' : '+',
                std::abs(exponent) % 10);
  return text;
}

void appendWithChecksum(std::string& out, const char* line) {
  int sum = 0;
  for (const char* c = line; *c != 0; ++c) {
    if (*c >= '0' && *c <= '9') sum += *c - '0';
    else if (*c == '-') ++sum;
  }
  out += line;
  out += static_cast<char>('0' + sum % 10);
  out += '\n';
}

}  // namespace

std::vector<Satellite> syntheticCatalogue(std::span<const Satellite> templates, std::size_t count,
                                          double deepSpaceShare, std::uint32_t seed) {
  std::vector<Satellite> nearEarth, deepSpace;
  for (const Satellite& s : templates) {
    WorkingSet w;
    initialiseWorkingSet(w, s);
    if (!(w.period > 0) || !(s.eo < 0.9)) continue;  // no empty entries, no near-parabolic orbits
    (w.isDeepSpace != 0 ? deepSpace : nearEarth).push_back(s);
  }
  std::vector<Satellite> out;
  if (nearEarth.empty() && deepSpace.empty()) return out;
  const Epoch latest = latestEpoch(templates);
  std::mt19937 random(seed);
  const auto uniform = [&random] { return static_cast<double>(random()) / 4294967296.0; };
  out.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const bool deep = deepSpace.empty() ? false : nearEarth.empty() || uniform() < deepSpaceShare;
    const std::vector<Satellite>& pool = deep ? deepSpace : nearEarth;
    Satellite s = pool[static_cast<std::size_t>(uniform() * static_cast<double>(pool.size())) % pool.size()];
    s.xmo = std::floor(uniform() * 3600000.0) / 10000.0;
    s.xnodeo = std::floor(uniform() * 3600000.0) / 10000.0;
    // Whole epoch days stay within the year of the latest epoch.
    const double day = std::fmod(latest.yyddd, 1000.0);
    const double back = std::min(3.0 * uniform(), day - 1.0);
    s.epoch = std::round((latest.yyddd - back) * 1e8) / 1e8;
    s.catnr = static_cast<std::int32_t>(70000 + i % 30000);
    s.elset = 999;
    s.revnum = 0;
    char name[kSatelliteNameSize];
    std::snprintf(name, sizeof name, "%.17s %05d", s.name.data(), static_cast<int>(i % 100000));
    s.name.fill(0);
    std::copy(name, name + std::min<std::size_t>(std::char_traits<char>::length(name), kSatelliteNameSize - 1),
              s.name.begin());
    out.push_back(s);
  }
  return out;
}

std::string elementText(std::span<const Satellite> sats) {
  std::string out;
  out.reserve(sats.size() * 168);
  char line[96];
  for (const Satellite& s : sats) {
    std::snprintf(line, sizeof line, "%-24.24s\n", s.name.data());
    out += line;
    const double yy = std::floor(s.epoch / 1000.0);
    const long ndot = std::lround(std::fabs(s.xndt2o) * 1e8);
    std::snprintf(line, sizeof line, "1 %05dU %-8s %02d%012.8f %c.%08ld %s %s 0 %4d", s.catnr % 100000, "26001A",
                  static_cast<int>(yy), s.epoch - 1000.0 * yy, s.xndt2o < 0 ? '-' : ' ', ndot % 100000000,
                  exponentField(s.xndd6o).c_str(), exponentField(s.bstar).c_str(), s.elset % 10000);
    appendWithChecksum(out, line);
    std::snprintf(line, sizeof line, "2 %05d %8.4f %8.4f %07ld %8.4f %8.4f %11.8f%5d", s.catnr % 100000, s.xincl,
                  s.xnodeo, std::lround(s.eo * 1e7) % 10000000, s.omegao, s.xmo, s.xno, s.revnum % 100000);
    appendWithChecksum(out, line);
  }
  return out;
}

}  // namespace norvane
