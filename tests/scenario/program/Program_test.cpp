#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/ProgramTest.h"

namespace koru {
namespace {

class ScenarioProgramTest : public test::ProgramTest {
 protected:
  ScenarioProgramTest() : test::ProgramTest(KORU_SCENARIO) {}
};

TEST_F(ScenarioProgramTest, Scenarios_are_reported_one_line_each_with_the_counts_at_the_end) {
  Write("good.scenario", "database sample\nuser 1\nview 17\nexpect mode 0\n");
  Write("bad.scenario", "database sample\nuser 1\n\nview 17\nexpect txtCode \"9\"\n");
  Outcome outcome = Run("good.scenario bad.scenario");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(
      outcome.out,
      "ok  good  4 steps\nFAILED bad.scenario:5: txtCode: expected \"9\", found \"\"\n1 passed, 1 failed\n");
  outcome = Run("good.scenario");
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "ok  good  4 steps\n1 passed, 0 failed\n");
}

TEST_F(ScenarioProgramTest, The_same_scenario_is_run_on_windows_without_a_display) {
  Write("good.scenario", "database sample\nuser 1\nview 17\nexpect mode 0\npicture \"seventeen\"\n");
  const Outcome outcome = Run("--desktop --pictures shots good.scenario");
  EXPECT_EQ(outcome.out, "ok  good  5 steps\n1 passed, 0 failed\n") << outcome.error;
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(Text("shots/seventeen.png").substr(1, 3), "PNG");
}

TEST_F(ScenarioProgramTest, The_window_of_the_program_is_used_and_its_dialogs_are_expected_by_name) {
  const std::string program =
      "database sample\nuser 1\nprogram database\nexpect window host\nclick part backUp\n";
  Write("good.scenario", program + "expect part take \"گرفتن پشتيبان...\"\npress Escape\ndialog backup\n");
  EXPECT_EQ(Run("--desktop good.scenario").out, "ok  good  8 steps\n1 passed, 0 failed\n");
  Write("closed.scenario", program + "dialog backup\nexpect window host\n");
  EXPECT_EQ(Run("--desktop closed.scenario").out, "ok  closed  7 steps\n1 passed, 0 failed\n");
  Write("bad.scenario", program);
  EXPECT_EQ(Run("--desktop bad.scenario").out,
            "FAILED bad.scenario:5: the dialog backup is shown that the scenario does not expect\n"
            "0 passed, 1 failed\n");
  Write("bad.scenario", program + "dialog about\n");
  EXPECT_EQ(Run("--desktop bad.scenario").out,
            "FAILED bad.scenario:6: another dialog is shown than the scenario expects: backup\n"
            "0 passed, 1 failed\n");
}

TEST_F(ScenarioProgramTest, The_program_keeps_its_settings_between_two_starts_of_a_scenario) {
  Write("good.scenario",
        "database sample\nuser 4\nprogram\nexpect part trySample \"آزمودن با نمونه\"\n"
        "program database\nexpect part users \"حسين رضايي\"\nprogram\nexpect part users \"حسين رضايي\"\n");
  EXPECT_EQ(Run("--desktop good.scenario").out, "ok  good  8 steps\n1 passed, 0 failed\n");
}

TEST_F(ScenarioProgramTest, A_picture_of_a_scenario_stays_in_the_folder_of_pictures) {
  for (const char* name : {"../outside", "/outside", "sub/../../outside", "a\\\\b"}) {
    Write("bad.scenario", std::string("database sample\nuser 1\nview 17\npicture \"") + name + "\"\n");
    const Outcome outcome = Run("--desktop --pictures shots bad.scenario");
    EXPECT_EQ(outcome.code, 1) << name;
    EXPECT_NE(outcome.out.find("bad.scenario:4: a picture is named without folders: "), std::string::npos)
        << outcome.out;
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path() / "shots")) << name;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "outside.png")) << name;
  }
}

TEST_F(ScenarioProgramTest, A_scenario_that_cannot_be_read_stops_everything_before_the_first_step) {
  Write("good.scenario", "database sample\n");
  Write("broken.scenario", "database sample\nlook\n");
  Outcome outcome = Run("good.scenario broken.scenario");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.error, "koru-scenario: broken.scenario:2: unknown step: look\n");
  outcome = Run("none.scenario");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-scenario: none.scenario: the scenario cannot be read\n");
}

TEST_F(ScenarioProgramTest, A_server_that_the_environment_does_not_name_is_missed) {
  Write("good.scenario", "database sample\n");
  const Outcome outcome = Run("--server good.scenario");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-scenario: --server needs a connection text in KORU_SQLSERVER\n");
}

TEST_F(ScenarioProgramTest, Help_and_version_need_no_display) {
  EXPECT_EQ(Run("--help").code, 0);
  EXPECT_EQ(Run("--version").out.substr(0, 14), "koru-scenario ");
  const Outcome wrong = Run("--wrong");
  EXPECT_EQ(wrong.code, 2);
  EXPECT_EQ(wrong.error, "koru-scenario: unknown option: --wrong\n");
}

}  // namespace
}  // namespace koru
