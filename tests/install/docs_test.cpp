// The help texts behind --help, the manual pages and the completion, and the
// data folder the installed programs look in.
#include <gtest/gtest.h>

#include "cli/command.h"
#include "cli/help_output.h"
#include "cli/help_text.h"
#include "cli/reference_docs.h"
#include "core/platform/data_folder.h"
#include "core/text/usage_line.h"

namespace norvane {
namespace {

TEST(UsageLine, OptionsWithTheirPlaceholders) {
  const auto options = OptionsInUsage(
      "passes --tle FILE --start \"YYYY-MM-DD HH:MM:SS\" [--visible] [--min-mag M] (--jd JD | --tsince MIN) "
      "[--device PATH|gpsd://HOST:PORT --baud N] [--tle FILE]");
  ASSERT_EQ(options.size(), 8u);  // --tle once
  EXPECT_EQ(options[0].value, "FILE");
  EXPECT_EQ(options[1].value, "\"YYYY-MM-DD HH:MM:SS\"");  // a quoted value is one word
  EXPECT_EQ(options[2].name, "visible");
  EXPECT_EQ(options[2].value, "");  // the bracket closes right after a flag
  EXPECT_EQ(options[3].value, "M");
  EXPECT_EQ(options[4].value, "JD");
  EXPECT_EQ(options[5].value, "MIN");
  EXPECT_EQ(options[6].value, "PATH|gpsd://HOST:PORT");
  EXPECT_EQ(options[7].name, "baud");
  EXPECT_TRUE(OptionsInUsage("--").empty());
  EXPECT_TRUE(OptionsInUsage("\"unclosed --quote").empty());
}

TEST(UsageLine, ChoicesAreLowerCaseWordsOnly) {
  EXPECT_EQ(ChoicesIn("real|pause|x1"), (std::vector<std::string>{"real", "pause", "x1"}));
  EXPECT_TRUE(ChoicesIn("FILE").empty());
  EXPECT_TRUE(ChoicesIn("PATH|gpsd://HOST:PORT").empty());
  EXPECT_TRUE(ChoicesIn("a||b").empty());
  EXPECT_TRUE(ChoicesIn("single").empty());
}

// An option without a text would leave a hole in --help and the manual page.
TEST(HelpTexts, EverySubcommandAndOptionIsExplained) {
  for (const cli::Command& command : cli::commands()) {
    EXPECT_FALSE(cli::CommandSummary(command.name).empty()) << command.name;
    for (const UsageOption& option : cli::commandOptions(command)) {
      EXPECT_FALSE(cli::OptionText(command.name, option.name).empty()) << command.name << " --" << option.name;
    }
  }
  EXPECT_EQ(cli::OptionText("download", "out").find("folder"), 4u);  // its own text before the shared one
}

TEST(HelpTexts, OptionsOfEveryUsageLineAndTheTable) {
  // A second usage line starts "norvane-cli [--json] x": --json is no option of x.
  const cli::Command command{"x", "x --a N\n       norvane-cli [--json] x --a N", {"a", "b"}, {"c"}, nullptr, 0};
  const auto options = cli::commandOptions(command);
  ASSERT_EQ(options.size(), 3u);
  EXPECT_EQ(options[0].value, "N");
  EXPECT_EQ(options[1].value, "VALUE");
  EXPECT_EQ(options[2].value, "");
}

TEST(ManualPage, RoffEscapes) {
  EXPECT_EQ(cli::roffText(".start\n'quote \\ back"), "\\&.start\n\\&'quote \\e back");
  EXPECT_EQ(cli::roffCode("--start \"A B\""), "\\-\\-start \\(dqA B\\(dq");
}

TEST(ManualPage, EverySubcommandHasASection) {
  const std::string page = cli::cliManualPage({"9.8.7", "/usr/share/norvane"});
  EXPECT_NE(page.find("\"Norvane 9.8.7\""), std::string::npos);
  for (const cli::Command& command : cli::commands()) {
    EXPECT_NE(page.find(".SS " + cli::roffCode(command.name) + "\n"), std::string::npos) << command.name;
  }
}

TEST(DataFolder, BesideTheProgramsFolder) {
  EXPECT_EQ(DataFolderBeside("/usr/bin/norvane"), "/usr/share/norvane");
  EXPECT_EQ(DataFolderBeside("/opt/x/bin/norvane-cli"), "/opt/x/share/norvane");
  EXPECT_EQ(DataFolderBeside(""), "");
  EXPECT_EQ(ProgramDataFolder(), DataFolderBeside(RunningExecutable()));
  EXPECT_FALSE(RunningExecutable().empty());
}

}  // namespace
}  // namespace norvane
