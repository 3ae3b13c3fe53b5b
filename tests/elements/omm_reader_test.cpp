// OMM CSV and JSON text through the element loader: every record either fills
// the same satellite record as its element-line twin or is skipped and counted.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/elements/element_text.h"
#include "core/elements/omm_epoch.h"
#include "omm_fixtures.h"
#include "tle_fixtures.h"

namespace norvane {
namespace {

using test::issOmm;
using test::OmmFields;
using test::with;

std::string nameOf(const Satellite& sat) { return sat.name.data(); }

void expectSameElements(const Satellite& omm, const Satellite& tle) {
  EXPECT_EQ(omm.catnr, tle.catnr);
  EXPECT_DOUBLE_EQ(omm.epoch, tle.epoch);
  EXPECT_DOUBLE_EQ(omm.xndt2o, tle.xndt2o);
  EXPECT_DOUBLE_EQ(omm.bstar, tle.bstar);
  EXPECT_DOUBLE_EQ(omm.xincl, tle.xincl);
  EXPECT_DOUBLE_EQ(omm.xnodeo, tle.xnodeo);
  EXPECT_DOUBLE_EQ(omm.eo, tle.eo);
  EXPECT_DOUBLE_EQ(omm.omegao, tle.omegao);
  EXPECT_EQ(omm.xmo, tle.xmo);  // the same single-precision value
  EXPECT_DOUBLE_EQ(omm.xno, tle.xno);
  EXPECT_EQ(omm.xndd6o, 0.0);
  EXPECT_EQ(omm.elset, tle.elset);
  EXPECT_EQ(omm.revnum, tle.revnum);
}

class OmmLoad : public ::testing::Test {
 protected:
  ElementLoad load(const std::string& text) { return loadElements(*omm, text); }
  const Satellite& sat(int slot) const { return omm->satellites[static_cast<std::size_t>(slot)]; }
  // The ISS entry with its catalogue columns replaced, read as element lines.
  const Satellite& twin(const std::string& columns) {
    std::string line1 = test::kIssLine1, line2 = test::kIssLine2;
    line1.replace(2, 5, columns);
    line2.replace(2, 5, columns);
    EXPECT_EQ(loadElementText(*tle, test::kIssName + "\r\n" + line1 + "\r\n" + line2 + "\r\n"), 1);
    return tle->satellites[0];
  }
  std::unique_ptr<Catalogue> omm = std::make_unique<Catalogue>();
  std::unique_ptr<Catalogue> tle = std::make_unique<Catalogue>();
};

TEST(ElementFormats, TellTheFormatFromTheFirstCharactersAndHeader) {
  EXPECT_EQ(detectElementFormat("\xEF\xBB\xBF \r\n\t[{}]"), ElementFormat::Json);
  EXPECT_EQ(detectElementFormat("\n{\"NORAD_CAT_ID\":1}"), ElementFormat::Json);
  EXPECT_EQ(detectElementFormat("\xEF\xBB\xBFOBJECT_NAME,EPOCH\r\n"), ElementFormat::Csv);
  EXPECT_EQ(detectElementFormat("EPOCH,NORAD_CAT_ID\n1,2"), ElementFormat::Csv);
  EXPECT_EQ(detectElementFormat(test::issEntry()), ElementFormat::Tle);
  EXPECT_EQ(detectElementFormat("OBJECT_NAME\r\n1 25544U"), ElementFormat::Tle);  // a name line, no columns
  EXPECT_EQ(detectElementFormat("ISS\r\nOBJECT_NAME,EPOCH\r\n"), ElementFormat::Tle);
  EXPECT_EQ(detectElementFormat(""), ElementFormat::Tle);
  EXPECT_STREQ(elementFormatName(ElementFormat::Json), "json");
}

TEST(OmmEpoch, CalendarAndDayOfYearFormsGiveYearAndDay) {
  EXPECT_DOUBLE_EQ(*ommEpochYearDay("2008-09-20T12:25:40.104192"), 8264.51782528);
  EXPECT_DOUBLE_EQ(*ommEpochYearDay("2008-264T12:25:40.104192Z"), 8264.51782528);
  EXPECT_DOUBLE_EQ(*ommEpochYearDay(" 1957-10-04 19:28 "), 57277.0 + 19.0 / 24 + 28.0 / 1440);
  EXPECT_DOUBLE_EQ(*ommEpochYearDay("2024-12-31"), 24366.0);
  EXPECT_DOUBLE_EQ(*ommEpochYearDay("2056-03-01T00:00:00"), 56061.0);
  for (const char* bad : {"2023-02-29T00:00:00", "2024-13-01", "2024-367", "2024-01-01T24:00:00", "2024-1-01",
                          "2057-01-01", "1956-12-31", "2024-01-01T10:00:00.", "2024-01-01T10:00:00+01", ""}) {
    EXPECT_FALSE(ommEpochYearDay(bad)) << bad;
  }
}

TEST_F(OmmLoad, CsvAndJsonFillTheRecordOfTheTwoLineTwin) {
  const Satellite& lines = twin("25544");
  for (const std::string& text : {test::ommCsv({issOmm()}), test::ommJson({issOmm()})}) {
    const ElementLoad found = load(text);
    EXPECT_EQ(found.count, 1);
    EXPECT_EQ(found.skipped, 0);
    expectSameElements(sat(0), lines);
    EXPECT_EQ(nameOf(sat(0)), "ISS (ZARYA)");
    EXPECT_EQ(omm->selected[0], 1);
  }
  EXPECT_EQ(load(test::ommJson({issOmm()})).format, ElementFormat::Json);
}

TEST_F(OmmLoad, CatalogueNumbersBeyondFiveDigits) {
  const ElementLoad found = load(test::ommCsv({with(issOmm(), "NORAD_CAT_ID", "100000"),
                                               with(issOmm(), "NORAD_CAT_ID", "270000"),
                                               with(issOmm(), "NORAD_CAT_ID", "999999999"),
                                               with(issOmm(), "NORAD_CAT_ID", "T0001"),
                                               with(issOmm(), "NORAD_CAT_ID", "1000000000"),
                                               with(issOmm(), "NORAD_CAT_ID", "0")}));
  EXPECT_EQ(found.count, 4);
  EXPECT_EQ(found.skipped, 2);
  expectSameElements(sat(0), twin("A0000"));
  expectSameElements(sat(1), twin("T0000"));
  EXPECT_EQ(sat(2).catnr, 999999999);
  EXPECT_EQ(sat(3).catnr, 270001);
}

TEST_F(OmmLoad, CsvQuotingLineEndsColumnOrderAndByteOrderMark) {
  const std::string text =
      "\xEF\xBB\xBF" "NORAD_CAT_ID,DECAY_DATE,epoch ,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,"
      "ARG_OF_PERICENTER,MEAN_ANOMALY,BSTAR,MEAN_MOTION_DOT,OBJECT_NAME\n"
      "25544,,2008-09-20T12:25:40.104192,15.72125391,.0006703,51.6416,247.4627,130.5360,325.0288,-.11606E-4,"
      "-.00002182,\"SL-16, R/B \"\"A\"\"\"\r\n"
      "\r\n"
      "100000,\"line\r\nbreak, and comma\",2008-09-20T12:25:40.104192,15.72125391,.0006703,51.6416,247.4627,"
      "130.5360,325.0288,-.11606E-4,-.00002182,  NAME WELL OVER TWENTY-FOUR CHARACTERS\n"
      "270000,,2008-09-20T12:25:40.104192,15.72125391,.0006703,51.6416,247.4627,130.5360,325.0288,-.11606E-4,"
      "-.00002182";  // no name column value, no final line end
  const ElementLoad found = load(text);
  EXPECT_EQ(found.format, ElementFormat::Csv);
  ASSERT_EQ(found.count, 3);
  EXPECT_EQ(found.skipped, 0);
  EXPECT_EQ(nameOf(sat(0)), "SL-16, R/B \"A\"");
  EXPECT_EQ(nameOf(sat(1)), "NAME WELL OVER TWENTY-FO");
  EXPECT_EQ(nameOf(sat(2)), "270000");
  Satellite lines = twin("A0000");
  lines.elset = lines.revnum = 0;  // no element number column
  expectSameElements(sat(1), lines);
}

TEST_F(OmmLoad, JsonExtraKeysNullsNumbersAndStrings) {
  const std::string text =
      "\xEF\xBB\xBF[{\"OBJECT_NAME\":null,\"EPOCH\":\"2008-09-20T12:25:40.104192\",\"MEAN_MOTION\":15.72125391,"
      "\"ECCENTRICITY\":\"0.0006703\",\"INCLINATION\":51.6416,\"RA_OF_ASC_NODE\":\"247.4627\","
      "\"ARG_OF_PERICENTER\":130.536,\"MEAN_ANOMALY\":325.0288,\"NORAD_CAT_ID\":25544,\"ELEMENT_SET_NO\":null,"
      "\"BSTAR\":-1.1606e-05,\"MEAN_MOTION_DOT\":\"-2.182e-05\",\"MEAN_MOTION_DDOT\":null,"
      "\"EXTRA\":{\"NORAD_CAT_ID\":7,\"list\":[1,{\"x\":null}]},\"CENTER_NAME\":\"EARTH\",\"OBJECT_ID\":[1]},"
      "42, [\"not a record\"], {\"NORAD_CAT_ID\":{\"nested\":1},\"EPOCH\":\"2008-09-20\"}]";
  const ElementLoad found = load(text);
  EXPECT_EQ(found.format, ElementFormat::Json);
  ASSERT_EQ(found.count, 1);
  EXPECT_EQ(found.skipped, 1);  // the object whose catalogue number is an object
  Satellite lines = twin("25544");
  lines.elset = lines.revnum = 0;  // no element number given
  expectSameElements(sat(0), lines);
  EXPECT_EQ(nameOf(sat(0)), "25544");

  const std::string single = test::ommJson({issOmm()});
  EXPECT_EQ(load(single.substr(1, single.size() - 2)).count, 1);  // a lone object is one record
}

TEST_F(OmmLoad, EachRequiredFieldMissingOrUnreadableSkipsItsRecord) {
  for (const char* key : {"NORAD_CAT_ID", "EPOCH", "MEAN_MOTION", "ECCENTRICITY", "INCLINATION", "RA_OF_ASC_NODE",
                          "ARG_OF_PERICENTER", "MEAN_ANOMALY", "BSTAR", "MEAN_MOTION_DOT"}) {
    const auto expectOneSkipped = [&](const std::string& text, const char* how) {
      const ElementLoad found = load(text);
      EXPECT_EQ(found.count, 2) << key << how;
      EXPECT_EQ(found.skipped, 1) << key << how;
      EXPECT_EQ(sat(1).catnr, 25544) << key << how;
    };
    expectOneSkipped(test::ommCsv({issOmm(), with(issOmm(), key, ""), issOmm()}), " empty in CSV");
    expectOneSkipped(test::ommCsv({issOmm(), with(issOmm(), key, "1.5.2"), issOmm()}), " unreadable");
    expectOneSkipped(test::ommJson({issOmm(), with(issOmm(), key, "null"), issOmm()}), " null in JSON");
    OmmFields without = issOmm();
    std::erase_if(without, [&](const auto& field) { return field.first == key; });
    expectOneSkipped(test::ommJson({issOmm(), without, issOmm()}), " left out of JSON");
  }
  for (const auto& [key, value] : OmmFields{{"ECCENTRICITY", "1"}, {"ECCENTRICITY", "-0.1"}, {"MEAN_MOTION", "0"},
                                            {"INCLINATION", "180.5"}, {"EPOCH", "2008-02-30T00:00:00"},
                                            {"NORAD_CAT_ID", "12.5"}, {"BSTAR", "nan"}, {"MEAN_ANOMALY", "1e400"}}) {
    EXPECT_EQ(load(test::ommCsv({with(issOmm(), key, value)})).skipped, 1) << key << " " << value;
  }
}

TEST_F(OmmLoad, At181SatellitesTheReadStops) {
  std::vector<OmmFields> records;
  for (int i = 1; i <= 200; ++i) records.push_back(with(issOmm(), "NORAD_CAT_ID", std::to_string(i)));
  records[3] = with(records[3], "EPOCH", "");
  for (const std::string& text : {test::ommCsv(records, "\n"), test::ommJson(records)}) {
    const ElementLoad found = load(text);
    EXPECT_EQ(found.count, 181);
    EXPECT_EQ(found.skipped, 1);
    EXPECT_EQ(sat(180).catnr, 182);
    EXPECT_EQ(omm->selected[179], 1);
  }
}

TEST_F(OmmLoad, BrokenJsonKeepsTheRecordsBeforeTheBreak) {
  const std::string two = test::ommJson({issOmm(), with(issOmm(), "NORAD_CAT_ID", "2")});
  const ElementLoad cut = load(two.substr(0, two.size() - 30));
  EXPECT_EQ(cut.count, 1);
  EXPECT_EQ(cut.skipped, 1);  // the record the text broke off in
  EXPECT_EQ(load(two + ",]").count, 2);
  EXPECT_EQ(load("[{\"NORAD_CAT_ID\":\"\xFF\"}," + two.substr(1)).count, 0);  // invalid UTF-8 stops the read
}

}  // namespace
}  // namespace norvane
