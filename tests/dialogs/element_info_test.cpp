#include <gtest/gtest.h>

#include <cmath>

#include "../elements/tle_fixtures.h"
#include "core/elements/element_info.h"
#include "core/elements/element_text.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {

TEST(ElementInfo, SelectionRowOfALoadedSatellite) {
  Catalogue catalogue;
  ASSERT_EQ(loadElementText(catalogue, test::issEntry()), 1);
  const double now = epochToJulian(8264.51782528) + 2.25;
  const SelectionRowTexts row = FormatSelectionRow(catalogue, 0, now);
  EXPECT_EQ(row.name, "ISS (ZARYA)             ");
  EXPECT_EQ(row.catnr, "25544");
  EXPECT_EQ(row.elementNumber, "292");  // ephemeris type digit 0, element number 292
  EXPECT_EQ(row.epoch, "2008- 9-20 12:25:40 (2.2 days old)");
  EXPECT_EQ(row.slot, "   0");
}

TEST(ElementInfo, BlankEntryShowsTheLastDayOf1999AndAnInfinitePeriod) {
  Catalogue catalogue;  // slot 0 empty: epoch 0 is day 0 of 2000
  const SelectionRowTexts row = FormatSelectionRow(catalogue, 0, epochToJulian(0.0));
  EXPECT_EQ(row.epoch, "1999-12-31  0:00:00 (0.0 days old)");
  EXPECT_EQ(row.name, "");
  const std::string info = TleInfoText(catalogue.satellites[0]);
  EXPECT_NE(info.find(" Period ( infmin)\r\n"), std::string::npos) << ::testing::PrintToString(info);
  // Slots outside the catalogue give empty texts rather than reading past it.
  EXPECT_EQ(FormatSelectionRow(catalogue, kCatalogueSlots, 0).slot, "");
}

TEST(ElementInfo, TleInfoTextDigitForDigit) {
  Catalogue catalogue;
  ASSERT_EQ(loadElementText(catalogue, test::issEntry()), 1);
  catalogue.satellites[0].elset = 292;  // never shown: the working copy leaves it 0
  EXPECT_EQ(TleInfoText(catalogue.satellites[0]),
            " Norad# 25544\r\n Epoch 8264.51782528 days \r\n elset 0\r\n Inclination 51.6416\r\n"
            " Ra of A. Node 247.4627\r\n Eccentricity 0.0006703\r\n Arg. of Peri. 130.5360\r\n"
            " Mean anomaly 325.0288\r\n Rot. per d. 15.72125391\r\n Period (91.5957min)\r\n"
            " xndt2o 0.00002182\r\n bstar 0.000011606 1/r revnum 292\r\n");
}

}  // namespace
}  // namespace norvane
