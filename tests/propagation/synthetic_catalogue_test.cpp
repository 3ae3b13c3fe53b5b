// The catalogue maker: element text it writes reads back to the same sets,
// and the copies keep their templates' orbit classes.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "element_sets.h"
#include "tools/synthetic_catalogue.h"

namespace norvane {
namespace {

std::vector<Satellite> templates() {
  std::vector<Satellite> all;
  for (const char* name : {"/visual_2017-04-14.txt", "/sources/sgp4-ver.tle"}) {
    std::ifstream in(std::string(NORVANE_DATA_DIR) + name, std::ios::binary);
    for (const Satellite& s : readElementSets(std::string{std::istreambuf_iterator<char>(in), {}})) all.push_back(s);
  }
  return all;
}

TEST(SyntheticCatalogue, KeepsOrbitClassesAndReadsBackFromItsText) {
  const std::vector<Satellite> source = templates();
  ASSERT_GT(source.size(), 150u);
  const std::vector<Satellite> made = syntheticCatalogue(source, 2000, 0.1, 7);
  ASSERT_EQ(made.size(), 2000u);
  int deep = 0;
  for (const Satellite& s : made) deep += test::workingSetOf(s).isDeepSpace;
  EXPECT_NEAR(deep, 200, 60);

  const std::vector<Satellite> back = readElementSets(elementText(made));
  ASSERT_EQ(back.size(), made.size());
  for (std::size_t i = 0; i < made.size(); ++i) {
    const Satellite& a = made[i];
    const Satellite& b = back[i];
    EXPECT_EQ(a.catnr, b.catnr);
    EXPECT_STREQ(a.name.data(), b.name.data());
    EXPECT_NEAR(a.epoch, b.epoch, 1e-8);
    EXPECT_NEAR(a.xincl, b.xincl, 1e-4);
    EXPECT_NEAR(a.xnodeo, b.xnodeo, 1e-4);
    EXPECT_NEAR(a.eo, b.eo, 1e-7);
    EXPECT_NEAR(a.xmo, b.xmo, 1e-4);
    EXPECT_NEAR(a.xno, b.xno, 1e-8);
    EXPECT_NEAR(a.bstar, b.bstar, std::fabs(a.bstar) * 1e-4 + 1e-12);
    // Same orbit class as a template: the copy's inclination and mean motion exist among them.
    const bool fromTemplate = std::any_of(source.begin(), source.end(), [&](const Satellite& t) {
      return t.xincl == a.xincl && t.xno == a.xno && t.eo == a.eo;
    });
    EXPECT_TRUE(fromTemplate) << i;
    if (::testing::Test::HasFailure()) break;
  }
}

}  // namespace
}  // namespace norvane
