// A cities file of any bytes: every place read must be within its limits.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ui/dialogs/cities_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const norvane::City& city : norvane::ParseCities(text)) {
    const bool inside = !city.name.empty() && city.name.size() <= norvane::kCityNameMax &&
                        std::fabs(city.latitude) <= 90.0 && std::fabs(city.longitude) <= 180.0 &&
                        city.altitude >= -500.0 && city.altitude <= 9000.0;
    if (!inside) std::abort();
  }
  return 0;
}
