#include <gtest/gtest.h>

#include "ui/dialogs/cities_file.h"

namespace norvane {
namespace {

TEST(CitiesFile, ReadsPlacesAndSkipsWhatIsNotOne) {
  const std::string text =
      "# comment\n"
      "\n"
      "Kiel, DE\t54.3233\t10.1228\t5\r\n"
      "La Paz, BO\t-16.5000\t-68.1500\t3640\n"
      "Too far north\t90.5\t0\t0\n"        // latitude out of range
      "Missing altitude\t1\t2\n"           // three fields
      "Five fields\t1\t2\t3\t4\n"
      "Bad number\t1x\t2\t3\n"
      "\t1\t2\t3\n"                        // no name
      "Last line without end\t0\t0\t0";
  const std::vector<City> cities = ParseCities(text);
  ASSERT_EQ(cities.size(), 3u);
  EXPECT_EQ(cities[0].name, "Kiel, DE");
  EXPECT_DOUBLE_EQ(cities[0].latitude, 54.3233);
  EXPECT_DOUBLE_EQ(cities[0].altitude, 5.0);
  EXPECT_DOUBLE_EQ(cities[1].longitude, -68.15);
  EXPECT_EQ(cities[2].name, "Last line without end");
}

TEST(CitiesFile, BoundedByLineLengthAndCount) {
  std::string longName(kCityNameMax + 1, 'a');
  EXPECT_TRUE(ParseCities(longName + "\t0\t0\t0\n").empty());
  std::string many;
  for (std::size_t i = 0; i < kCitiesMax + 5; ++i) many += "P\t1\t2\t3\n";
  EXPECT_EQ(ParseCities(many).size(), kCitiesMax);
  EXPECT_TRUE(ParseCities(std::string("\0\t1\t2\t3\n", 8)).empty());
}

TEST(CitiesFile, BundledFileHasEveryPlace) {
  const std::vector<City> cities = ReadCitiesFile(NORVANE_DATA_DIR "/Cities.loc");
  ASSERT_EQ(cities.size(), 312u);
  bool berlin = false;
  for (const City& c : cities) {
    if (c.name != "Berlin, DE") continue;
    berlin = true;
    EXPECT_NEAR(c.latitude, 52.5, 1e-9);
    EXPECT_NEAR(c.longitude, 13.3667, 1e-9);
    EXPECT_EQ(c.altitude, 34.0);
  }
  EXPECT_TRUE(berlin);
  EXPECT_TRUE(ReadCitiesFile(NORVANE_DATA_DIR "/no such file").empty());
}

}  // namespace
}  // namespace norvane
