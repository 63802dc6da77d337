#include "scenario/Scenario.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr std::array<std::string_view, 6> kPatterns = {
    "view NUMBER",          "type NAME TEXT",         "date NAME DATE|empty",
    "expect sql TEXT ROWS", "expect NAME... enabled", "key NAME KEY"};

Scenario Parse(std::string_view text) { return ParseScenario(text, "day.scenario", kPatterns); }

std::string ErrorOf(std::string_view text) {
  try {
    static_cast<void>(Parse(text));
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(ScenarioReading, Steps_keep_their_line_and_comments_and_empty_lines_are_skipped) {
  const Scenario scenario = Parse("\xEF\xBB\xBF# opening\r\n\r\n  view 5 # the first\r\n\nview -1\n");
  ASSERT_EQ(scenario.steps.size(), 2U);
  EXPECT_EQ(scenario.steps[0].line, 3);
  EXPECT_EQ(scenario.steps[0].Number(1), 5);
  EXPECT_EQ(scenario.steps[1].line, 5);
  EXPECT_EQ(scenario.steps[1].Number(1), -1);
}

TEST(ScenarioReading, A_quoted_text_keeps_blanks_and_resolves_its_escapes) {
  const Scenario scenario = Parse(R"(type txtNotes "  كد \"1\" \\ \u200C\u00A0\n| # ")");
  EXPECT_EQ(scenario.steps[0].Text(2), "  كد \"1\" \\ \u200C\u00A0\n| # ");
  EXPECT_TRUE(scenario.steps[0].words[2].quoted);
}

TEST(ScenarioReading, Rows_belong_to_the_step_before_them) {
  const Scenario scenario = Parse("expect sql \"select 1\"\n| 1 NULL \"a b\"\n  | 2.5 \"\" \"NULL\"\n");
  ASSERT_EQ(scenario.steps.size(), 1U);
  ASSERT_EQ(scenario.steps[0].rows.size(), 2U);
  EXPECT_EQ(scenario.steps[0].rows[0],
            (std::vector<ScenarioWord>{{"1", false}, {"NULL", false}, {"a b", true}}));
  EXPECT_EQ(scenario.steps[0].rows[1],
            (std::vector<ScenarioWord>{{"2.5", false}, {"", true}, {"NULL", true}}));
}

TEST(ScenarioReading, The_pattern_decides_which_step_it_is) {
  const Scenario scenario =
      Parse("expect cmdNew cmdExit enabled\ndate gdpFromDate 1404/1/5\ndate gdpToDate empty\n");
  EXPECT_EQ(scenario.steps[0].pattern, 4U);
  EXPECT_EQ(scenario.steps[1].pattern, 2U);
  EXPECT_EQ(scenario.steps[2].pattern, 2U);
}

TEST(ScenarioReading, An_error_names_file_and_line_and_how_the_step_is_written) {
  EXPECT_EQ(ErrorOf("view 1\nview five\n"), "day.scenario:2: unknown step: view; it is written: view NUMBER");
  EXPECT_EQ(ErrorOf("look 1\n"), "day.scenario:1: unknown step: look");
  EXPECT_EQ(ErrorOf("view 1 2"), "day.scenario:1: unknown step: view; it is written: view NUMBER");
  EXPECT_EQ(ErrorOf("type txtGNO \"a"), "day.scenario:1: a quoted text does not end on its line");
  EXPECT_EQ(ErrorOf("type txtGNO \"a\"b"), "day.scenario:1: a blank is missing after the quoted text \"a\"");
  EXPECT_EQ(ErrorOf("type txtGNO a\"b"), "day.scenario:1: there is a quote inside the word a\"b");
  EXPECT_EQ(ErrorOf(R"(type txtGNO "\x")"),
            R"(day.scenario:1: after \ only " \ n or u and four hexadecimal digits may come)");
  EXPECT_EQ(ErrorOf(R"(type txtGNO "\u12")"), R"(day.scenario:1: \u needs four hexadecimal digits)");
  EXPECT_EQ(ErrorOf("view 1\n| 1\n"), "day.scenario:2: a line that begins with | belongs to no step");
  EXPECT_EQ(ErrorOf("# nothing\n"), "day.scenario: the scenario has no step");
}

TEST(ScenarioReading, Numbers_and_days_must_exist) {
  EXPECT_NE(ErrorOf("view 2147483648"), "no error");
  EXPECT_EQ(ErrorOf("view -2147483648"), "no error");
  EXPECT_NE(ErrorOf("date gdpFromDate 1404/12/30"), "no error");
  EXPECT_EQ(ErrorOf("date gdpFromDate 1403/12/30"), "no error");
  EXPECT_NE(ErrorOf("key txtGNO F13"), "no error");
  EXPECT_EQ(ErrorOf("key txtGNO Ctrl+s"), "no error");
}

TEST(ScenarioReading, A_missing_file_and_a_folder_are_named) {
  try {
    static_cast<void>(ReadScenario("nowhere.scenario", kPatterns));
    FAIL();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "nowhere.scenario: the scenario cannot be read");
  }
  EXPECT_THROW(static_cast<void>(ReadScenario("/", kPatterns)), InputError);
}

TEST(ScenarioReading, A_text_is_written_back_so_that_it_can_be_read_again) {
  const std::string text = "a\"b\\c\n\u200C\u00A0\u200F ي \t";
  const std::string written = QuotedForScenario(text);
  EXPECT_EQ(written, R"("a\"b\\c\n\u200C\u00A0\u200F ي \u0009")");
  EXPECT_EQ(Parse("type txtGNO " + written).steps[0].Text(2), text);
}

}  // namespace
}  // namespace koru
