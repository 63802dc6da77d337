#include "scenario/program/CommandLine.h"

#include <gtest/gtest.h>

#include "platform/text/Errors.h"

namespace koru {
namespace {

using Command = ScenarioCommandLine::Command;

std::string ErrorOf(const std::vector<std::string>& arguments) {
  try {
    static_cast<void>(ParseScenarioCommandLine(arguments));
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(ScenarioCommandLineReading, Files_and_options_come_in_any_order) {
  const ScenarioCommandLine line =
      ParseScenarioCommandLine({"--desktop", "a.scenario", "--pictures", "shots", "b.scenario"});
  EXPECT_EQ(line.command, Command::Run);
  EXPECT_EQ(line.files, (std::vector<std::string>{"a.scenario", "b.scenario"}));
  EXPECT_TRUE(line.desktop);
  EXPECT_EQ(line.pictures, "shots");
  EXPECT_FALSE(line.server);
  EXPECT_TRUE(ParseScenarioCommandLine({"a", "--server"}).server);
  EXPECT_FALSE(ParseScenarioCommandLine({"a"}).desktop);
  EXPECT_TRUE(ParseScenarioCommandLine({"a", "-platform", "offscreen"}).platformNamed);
}

TEST(ScenarioCommandLineReading, What_cannot_be_used_is_named) {
  EXPECT_EQ(ErrorOf({"--dekstop", "a"}), "unknown option: --dekstop");
  EXPECT_EQ(ErrorOf({}), "no scenario is named; --help says how");
  EXPECT_EQ(ErrorOf({"a", "--pictures"}), "--pictures needs a value");
  EXPECT_EQ(ErrorOf({"a", "--pictures", "x"}), "--pictures needs --desktop");
}

TEST(ScenarioCommandLineReading, Help_names_every_option_and_the_exit_codes) {
  EXPECT_EQ(ParseScenarioCommandLine({"--help"}).command, Command::Help);
  EXPECT_EQ(ParseScenarioCommandLine({"--version"}).command, Command::Version);
  const std::string help = ScenarioHelp();
  for (const char* word : {"--desktop", "--pictures", "--server", "KORU_SQLSERVER", "-platform", "--version",
                           "Exit codes", "docs/scenarios.md"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
}

}  // namespace
}  // namespace koru
