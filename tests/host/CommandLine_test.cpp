#include "host/CommandLine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "platform/text/Errors.h"

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

TEST(CommandLineReading, A_sample_is_the_standard_one_unless_another_size_is_named) {
  EXPECT_EQ(ParseCommandLine({"create-sample", "a"}).sample, SampleSize::Standard);
  EXPECT_EQ(ParseCommandLine({"create-sample", "--size", "medium", "a"}).sample, SampleSize::Medium);
  EXPECT_EQ(ParseCommandLine({"--size", "full", "create-sample", "a"}).sample, SampleSize::Full);
  EXPECT_EQ(ParseCommandLine({"create-schema", "--connection", "x", "--size", "none"}).sample, std::nullopt);
}

TEST(CommandLineReading, A_schema_and_a_check_take_a_connection) {
  const CommandLine line = ParseCommandLine({"create-schema", "--connection", "Provider=X"});
  EXPECT_EQ(line.command, Command::CreateSchema);
  EXPECT_EQ(line.connection, "Provider=X");
  EXPECT_EQ(line.sample, SampleSize::Standard);
  EXPECT_EQ(ParseCommandLine({"check", "--connection", "Provider=X"}).command, Command::Check);
  EXPECT_EQ(ParseCommandLine({"check", "--database", "a.db"}).connection,
            "Provider=SQLite;Data Source=\"a.db\"");
}

TEST(CommandLineReading, What_cannot_be_understood_is_named) {
  EXPECT_EQ(ErrorOf({"--databse", "x"}), "گزينة ناشناخته: --databse");
  EXPECT_EQ(ErrorOf({"play", "x"}), "دستور ناشناخته: play");
  EXPECT_EQ(ErrorOf({"create-sample", "a", "b"}), "پس از create-sample بايد نام يك پرونده بيايد.");
  EXPECT_EQ(ErrorOf({"create-sample", "--size", "huge", "a"}),
            "اندازة ناشناخته: huge. اندازه ها: standard، medium، full، none");
  EXPECT_EQ(ErrorOf({"create-sample", "--size", "none", "a"}),
            "--size none تنها با create-schema به كار مي رود.");
  EXPECT_EQ(ErrorOf({"check", "--connection", "x", "--size", "full"}),
            "--size تنها با create-sample و create-schema به كار مي رود.");
  for (const char* command : {"create-schema", "check"}) {
    EXPECT_EQ(ErrorOf({command}),
              "create-schema و check رشته اتصال را با --connection مي خواهند و پرونده اي نمي خواهند.");
    EXPECT_NE(ErrorOf({command, "--connection", "x", "file"}), "no error");
  }
  EXPECT_EQ(ErrorOf({"--database"}), "پس از --database مقداري نيامده است.");
  EXPECT_EQ(ErrorOf({"create-sample", "a", "--database", "x"}),
            "--database و --connection با اين دستور به كار نمي روند.");
}

TEST(CommandLineReading, Help_names_every_command_in_both_languages) {
  EXPECT_EQ(ParseCommandLine({"--help"}).command, Command::Help);
  const std::string help = HelpText();
  for (const char* word : {"--database", "--connection", "create-sample", "--size", "create-schema", "check",
                           "--version", "صفحة ميزبان را باز مي كند", "Opens the host screen"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
}

TEST(CommandLineReading, The_manual_page_has_every_option_command_and_variable_of_the_help) {
  std::ifstream file(std::string(KORU_SOURCES) + "/docs/man/koru-counting.1");
  std::string page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::erase(page, '\\');  // \- is a hyphen that can be searched for
  const std::string help = HelpText();
  const std::regex word("--[a-z]+|create-[a-z]+|check|KORU_[A-Z_]+|standard|medium|full|none");
  int words = 0;
  for (std::sregex_iterator found(help.begin(), help.end(), word); found != std::sregex_iterator(); ++found) {
    EXPECT_NE(page.find(found->str()), std::string::npos) << found->str();
    ++words;
  }
  EXPECT_GT(words, 10);
}

}  // namespace
}  // namespace koru
