#include "ui/app/element_file_commands.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/elements/selection_file.h"
#include "settings/memory_settings_store.h"
#include "tests/common/test_support.h"
#include "tests/elements/tle_fixtures.h"

namespace norvane {
namespace {

class ElementFileCommands : public ::testing::Test {
 protected:
  std::string file(const std::string& name, int entries = 2) {
    std::string text;
    for (int i = 0; i < entries; ++i) text += test::issEntry();
    return temp.write(name, text);
  }
  testing::TempFolder temp;
  const std::string& folder = temp.path;
  ElementFileState state;
  Settings settings;
  MemorySettingsStore store;
  testing::RecordingSink messages;
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
};

TEST_F(ElementFileCommands, OpenTakesEitherCaseIridiumAndLowerCaseGps) {
  settings.flares = 1;
  settings.satDisplay = 4;
  state.tapPicked = 1;
  state.viewMatrix[1] = 0.5;
  BeginOpenCommand(state, settings);
  EXPECT_EQ(settings.satDisplay, 0);
  EXPECT_EQ(OpenChosenFile(state, *catalogue, settings, store, messages, file("Iridium.txt")), 2);
  EXPECT_EQ(state.iridiumFile, 1);
  EXPECT_EQ(settings.flares, 1);
  EXPECT_EQ(state.tapPicked, 0);
  EXPECT_EQ(state.viewMatrix[1], 0.0);
  EXPECT_EQ(settings.downlink, 130.0);
  EXPECT_EQ(messages.shown, (std::vector<testing::RecordingSink::Shown>{
                                {"Data of 2 satellites successfully read from " + folder + "/Iridium.txt", "Info",
                                 MessageIcon::Information}}));
  EXPECT_EQ(settings.lastOpen, folder + "/Iridium.txt");
  EXPECT_EQ(store.values.count("Last_Open"), 1u);

  BeginOpenCommand(state, settings);
  OpenChosenFile(state, *catalogue, settings, store, messages, file("gps-ops.txt"));
  EXPECT_EQ(state.iridiumFile, 0);
  EXPECT_EQ(settings.flares, 0);
  EXPECT_EQ(settings.downlink, 1227.6);
  EXPECT_EQ(settings.uplink, 1575.42);
  OpenChosenFile(state, *catalogue, settings, store, messages, file("GPS-ops.txt"));
  EXPECT_EQ(settings.downlink, 130.0);
  EXPECT_EQ(settings.uplink, 138.0);
}

TEST_F(ElementFileCommands, OpenOfAMissingFileGoesOnWithNothing) {
  catalogue->satelliteCount = 3;
  EXPECT_EQ(OpenChosenFile(state, *catalogue, settings, store, messages, folder + "/gone.tle"), 0);
  const std::vector<std::string> want{"I can't open the file!", "Read failed!",
                                      "Data of 0 satellites successfully read from " + folder + "/gone.tle"};
  EXPECT_EQ(messages.texts(), want);
  EXPECT_EQ(catalogue->satelliteCount, 0);
}

TEST_F(ElementFileCommands, StartUpTakesOnlyLowerCaseIridium) {
  settings.flares = 1;
  settings.lastOpen = file("Iridium.txt");
  StartUpElementFiles(state, *catalogue, settings, messages, folder);
  EXPECT_EQ(state.iridiumFile, 0);
  EXPECT_EQ(settings.flares, 0);
  EXPECT_EQ(messages.shown.back().title, "Info.");
  EXPECT_EQ(messages.shown.back().text.back(), '.');

  settings.flares = 1;
  settings.lastOpen = file("iridium.txt");
  StartUpElementFiles(state, *catalogue, settings, messages, folder);
  EXPECT_EQ(state.iridiumFile, 1);
  EXPECT_EQ(settings.flares, 1);
}

TEST_F(ElementFileCommands, FirstStartKeepsTheBlankEntry) {
  catalogue->satelliteCount = 1;
  catalogue->selected[0] = 1;
  StartUpElementFiles(state, *catalogue, settings, messages, folder);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"I can't open the file!"});
  EXPECT_EQ(catalogue->satelliteCount, 1);
  EXPECT_EQ(catalogue->selected[0], 1);
}

TEST_F(ElementFileCommands, SelectionSurvivesExitAndAppliesSlotBySlot) {
  settings.lastOpen = file("a.txt", 181);
  StartUpElementFiles(state, *catalogue, settings, messages, folder);
  ASSERT_EQ(catalogue->satelliteCount, 181);  // the 181st has no selection flag
  catalogue->selected[1] = 0;
  catalogue->selected[179] = 0;
  ASSERT_TRUE(ExitElementFiles(*catalogue, settings, store, messages, folder));
  EXPECT_EQ(store.writes, 1);

  auto next = std::make_unique<Catalogue>();
  settings.lastOpen = file("b.txt", 3);
  StartUpElementFiles(state, *next, settings, messages, folder);
  EXPECT_EQ(next->satelliteCount, 3);
  EXPECT_EQ(next->selected[0], 1);
  EXPECT_EQ(next->selected[1], 0);
  EXPECT_EQ(next->selected[5], 1);  // flags beyond the file apply as stored
  EXPECT_EQ(next->selected[179], 0);

  messages.shown.clear();
  EXPECT_FALSE(ExitElementFiles(*next, settings, store, messages, ""));
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Incorrect Norvane pragram path!"});
  EXPECT_EQ(store.writes, 2);
}

}  // namespace
}  // namespace norvane
