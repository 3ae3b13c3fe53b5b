#include "core/elements/element_parser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "core/elements/element_text.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

using test::kIssLine1;
using test::kIssLine2;

// Line 1 as the reader delivers it after a 24-character name line.
std::string shifted(const std::string& line) { return "\n" + line; }

class ElementParser : public ::testing::Test {
 protected:
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  const Satellite& slot(int i) const { return catalogue->satellites[static_cast<std::size_t>(i)]; }
};

TEST_F(ElementParser, IssExampleKeepsTheFormatsSignLossesAndFieldChoices) {
  ASSERT_TRUE(parseElementSet(*catalogue, test::kIssName, shifted(kIssLine1), kIssLine2, 3));
  const Satellite& s = slot(3);
  EXPECT_EQ(std::string(s.name.data()), test::kIssName);
  EXPECT_EQ(s.catnr, 25544);
  EXPECT_DOUBLE_EQ(s.epoch, 8264.51782528);
  EXPECT_DOUBLE_EQ(s.xndt2o, 0.00002182);  // sign lost
  EXPECT_DOUBLE_EQ(s.bstar, 1.1606e-5);    // sign lost
  EXPECT_EQ(s.xndd6o, 0.0);
  EXPECT_EQ(s.elset, 29);    // element number without its last digit
  EXPECT_EQ(s.revnum, 292);  // ephemeris type digit and element number
  EXPECT_DOUBLE_EQ(s.xincl, 51.6416);
  EXPECT_DOUBLE_EQ(s.xnodeo, 247.4627);
  EXPECT_DOUBLE_EQ(s.eo, 0.0006703);
  EXPECT_DOUBLE_EQ(s.omegao, 130.5360);
  EXPECT_EQ(s.xmo, 325.02880859375);  // through a float
  EXPECT_DOUBLE_EQ(s.xno, 15.72125391);
}

TEST_F(ElementParser, UnshiftedLine1ReadsOneColumnToTheRight) {
  ASSERT_TRUE(parseElementSet(*catalogue, "ISS", kIssLine1, kIssLine2, 0));
  const Satellite& s = slot(0);
  EXPECT_EQ(s.catnr, 25544);                 // "25544U" still converts
  EXPECT_DOUBLE_EQ(s.epoch, 8264.01782528);  // fraction loses its first digit, over ten
}

TEST_F(ElementParser, KeptIntegerRepeatsThePreviousConversion) {
  // Blank exponent: the mantissa conversion's value stands in for it.
  std::string line1 = shifted(kIssLine1);
  line1.replace(60, 2, "  ");
  // Blank element number and type: revnum repeats the derivative digits.
  line1.replace(63, 6, "      ");
  ASSERT_TRUE(parseElementSet(*catalogue, test::kIssName, line1, kIssLine2, 0));
  EXPECT_TRUE(std::isinf(slot(0).bstar));  // 11606 * 10^(11606 - 5)
  EXPECT_EQ(slot(0).revnum, 2182);
}

TEST_F(ElementParser, BlankOrZeroCatalogueNumberFails) {
  std::string line1 = shifted(kIssLine1);
  line1.replace(2, 6, "      ");
  EXPECT_FALSE(parseElementSet(*catalogue, "X", line1, kIssLine2, 0));
  EXPECT_FALSE(parseElementSet(*catalogue, "X", kIssLine1, kIssLine2, 181));
  EXPECT_FALSE(parseElementSet(*catalogue, "X", kIssLine1, kIssLine2, -1));
}

TEST_F(ElementParser, Alpha5CatalogueNumbers) {
  EXPECT_EQ(alpha5CatalogueNumber("A0001"), 100001);
  EXPECT_EQ(alpha5CatalogueNumber("H9999"), 179999);
  EXPECT_EQ(alpha5CatalogueNumber("J0000"), 180000);  // I is skipped
  EXPECT_EQ(alpha5CatalogueNumber("P1234"), 231234);  // O is skipped
  EXPECT_EQ(alpha5CatalogueNumber("Z9999"), 339999);
  for (const char* bad : {"I0001", "O0001", "a0001", "A001", "A00011", "AB001", "25544"}) {
    EXPECT_EQ(alpha5CatalogueNumber(bad), 0) << bad;
  }
  std::string line1 = shifted(kIssLine1);
  line1.replace(3, 5, "T4321");
  ASSERT_TRUE(parseElementSet(*catalogue, "NEW", line1, kIssLine2, 0));
  EXPECT_EQ(slot(0).catnr, 274321);
  EXPECT_DOUBLE_EQ(slot(0).epoch, 8264.51782528);  // other fields unchanged
}

TEST_F(ElementParser, BlankEntryIsAllZeroWithItsName) {
  catalogue->satellites[0].xno = 99;
  loadBlankSatellite(*catalogue);
  const Satellite& s = slot(0);
  EXPECT_STREQ(s.name.data(), "No satellite ");
  EXPECT_EQ(s.catnr, 0);
  for (double v : {s.epoch, s.xndt2o, s.bstar, s.xincl, s.xnodeo, s.eo, s.omegao, s.xmo, s.xno}) {
    EXPECT_EQ(v, 0.0);
  }
  EXPECT_EQ(s.elset, 0);
  EXPECT_EQ(s.revnum, 0);
}

TEST_F(ElementParser, ShortAndGarbageBuffersGiveZerosNotReads) {
  const std::string junk = "\xff\x01*+-.eE\t\x7f";
  EXPECT_FALSE(parseElementSet(*catalogue, "", "", "", 0));
  EXPECT_FALSE(parseElementSet(*catalogue, junk, junk, junk, 0));
  EXPECT_TRUE(parseElementSet(*catalogue, "", shifted(kIssLine1).substr(0, 30), "", 0));
  EXPECT_EQ(slot(0).catnr, 25544);
  EXPECT_DOUBLE_EQ(slot(0).epoch, 8264.00051782);  // five fraction digits, still over 1e8
}

}  // namespace
}  // namespace norvane
