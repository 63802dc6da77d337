#include "host/CommandLine.h"

#include <gtest/gtest.h>

#include "platform/Errors.h"

namespace koru {
namespace {

using Command = CommandLine::Command;

std::string ErrorOf(const std::vector<std::string>& arguments) {
  try {
    static_cast<void>(ParseCommandLine(arguments));
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(CommandLineReading, Without_arguments_the_host_screen_opens) {
  const CommandLine line = ParseCommandLine({});
  EXPECT_EQ(line.command, Command::HostScreen);
  EXPECT_TRUE(line.connection.empty());
}

TEST(CommandLineReading, A_database_file_becomes_a_connection_text) {
  EXPECT_EQ(ParseCommandLine({"--database", "a;b \"c\".db"}).connection,
            "Provider=SQLite;Data Source=\"a;b \"\"c\"\".db\"");
  EXPECT_EQ(ParseCommandLine({"--connection", "Provider=X"}).connection, "Provider=X");
}

TEST(CommandLineReading, Play_takes_files_and_options_in_any_order) {
  const CommandLine line =
      ParseCommandLine({"--desktop", "play", "a.story", "--pictures", "shots", "b.story"});
  EXPECT_EQ(line.command, Command::Play);
  EXPECT_EQ(line.files, (std::vector<std::string>{"a.story", "b.story"}));
  EXPECT_TRUE(line.desktop);
  EXPECT_EQ(line.pictures, "shots");
}

TEST(CommandLineReading, What_cannot_be_understood_is_named) {
  EXPECT_EQ(ErrorOf({"--databse", "x"}), "گزينة ناشناخته: --databse");
  EXPECT_EQ(ErrorOf({"paly", "x"}), "دستور ناشناخته: paly");
  EXPECT_EQ(ErrorOf({"play"}), "پس از play نام پروندة سناريو نيامده است.");
  EXPECT_EQ(ErrorOf({"create-sample", "a", "b"}), "پس از create-sample بايد نام يك پرونده بيايد.");
  EXPECT_EQ(ErrorOf({"--database"}), "پس از --database مقداري نيامده است.");
  EXPECT_EQ(ErrorOf({"--desktop"}), "--desktop و --pictures تنها با play به كار مي روند.");
  EXPECT_EQ(ErrorOf({"play", "a", "--pictures", "x"}), "--pictures تنها با --desktop به كار مي رود.");
  EXPECT_EQ(ErrorOf({"play", "a", "--database", "x"}),
            "--database و --connection با اين دستور به كار نمي روند.");
}

TEST(CommandLineReading, Help_names_every_command_in_both_languages) {
  EXPECT_EQ(ParseCommandLine({"--help"}).command, Command::Help);
  const std::string help = HelpText();
  for (const char* word : {"--database", "--connection", "create-sample", "play", "--desktop", "--pictures",
                           "--version", "سناريوها را اجرا مي كند", "Plays scenarios"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
}

}  // namespace
}  // namespace koru
