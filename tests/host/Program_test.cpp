#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "host/TemporaryFolder.h"

namespace koru {
namespace {

/// Runs the built program in a home of its own.
class ProgramTest : public testing::Test {
 protected:
  struct Outcome {
    int code = 0;
    std::string out;
    std::string error;
  };

  [[nodiscard]] Outcome Run(const std::string& arguments, const std::string& environment = "") const {
    const std::string command =
        "cd '" + Home() + "' && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM HOME='" + Home() +
        "' XDG_CONFIG_HOME='" + Home() + "/config' XDG_DATA_HOME='" + Home() + "/data' XDG_RUNTIME_DIR='" +
        Home() + "' " + environment + " '" KORU_PROGRAM "' " + arguments + " >out 2>error";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Text("out"), Text("error")};
  }
  [[nodiscard]] std::string Home() const { return folder_.Path().string(); }
  void Write(const std::string& file, const std::string& text) const {
    std::filesystem::create_directories((folder_.Path() / file).parent_path());
    std::ofstream(folder_.Path() / file, std::ios::binary) << text;
  }
  [[nodiscard]] std::string Text(const std::string& file) const {
    std::ifstream stream(folder_.Path() / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  TemporaryFolder folder_;
};

TEST_F(ProgramTest, Stories_are_reported_one_line_each_with_the_counts_at_the_end) {
  Write("good.story", "database sample\nuser 1\nview 17\nexpect mode 0\n");
  Write("bad.story", "database sample\nuser 1\n\nview 17\nexpect txtCode \"9\"\n");
  Outcome outcome = Run("play good.story bad.story");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(
      outcome.out,
      "ok  good  4 steps\nFAILED bad.story:5: txtCode: expected \"9\", found \"\"\n1 passed, 1 failed\n");
  outcome = Run("play good.story");
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "ok  good  4 steps\n1 passed, 0 failed\n");
}

TEST_F(ProgramTest, The_same_story_is_played_on_windows_without_a_display) {
  Write("good.story", "database sample\nuser 1\nview 17\nexpect mode 0\npicture \"seventeen\"\n");
  const Outcome outcome = Run("play --desktop --pictures shots good.story");
  EXPECT_EQ(outcome.out, "ok  good  5 steps\n1 passed, 0 failed\n") << outcome.error;
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(Text("shots/seventeen.png").substr(1, 3), "PNG");
}

TEST_F(ProgramTest, A_story_that_cannot_be_read_stops_everything_before_the_first_step) {
  Write("good.story", "database sample\n");
  Write("broken.story", "database sample\nlook\n");
  Outcome outcome = Run("play good.story broken.story");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.error, "koru-counting: broken.story:2: this is no step that can be played: look\n");
  outcome = Run("play none.story");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-counting: none.story: the story cannot be read\n");
}

TEST_F(ProgramTest, A_sample_is_made_once_and_never_over_another_file) {
  EXPECT_EQ(Run("create-sample a.db").code, 0);
  const std::string made = Text("a.db");
  EXPECT_EQ(made.substr(0, 15), "SQLite format 3");
  const Outcome again = Run("create-sample a.db");
  EXPECT_EQ(again.code, 2);
  EXPECT_NE(again.error.find("a.db"), std::string::npos) << again.error;
  EXPECT_EQ(Text("a.db"), made);
  EXPECT_EQ(Run("create-sample none/a.db").code, 2);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "none"));
}

TEST_F(ProgramTest, A_broken_settings_file_is_named_and_kept) {
  const std::string broken = "[comInvCounting]\nUserID=three\n";
  Write("config/koru-counting/koru-counting.ini", broken);
  Outcome outcome = Run("", "QT_QPA_PLATFORM=offscreen");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("koru-counting.ini، سطر 2"), std::string::npos) << outcome.error;
  EXPECT_EQ(Text("config/koru-counting/koru-counting.ini"), broken);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "data"));

  Write("config/koru-counting/koru-counting.ini", "[comInvCounting]\nnonsense\n");
  outcome = Run("", "QT_QPA_PLATFORM=offscreen");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("koru-counting.ini، سطر 2"), std::string::npos) << outcome.error;
}

TEST_F(ProgramTest, A_database_that_cannot_be_used_is_named_and_not_remembered) {
  Write("text.db", "no database");
  for (const char* arguments :
       {"--database none.db", "--database text.db", "--database .", "--connection 0"}) {
    const Outcome outcome = Run(arguments, "QT_QPA_PLATFORM=offscreen");
    EXPECT_EQ(outcome.code, 2) << arguments;
    EXPECT_TRUE(outcome.error.starts_with("koru-counting: ")) << outcome.error;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "config")) << arguments;
  }
  EXPECT_EQ(Text("text.db"), "no database");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "none.db"));
}

TEST_F(ProgramTest, Without_a_display_the_host_screen_says_so) {
  const Outcome outcome = Run("");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-counting: نمايشگري براي باز كردن پنجره پيدا نشد (DISPLAY).\n");
}

TEST_F(ProgramTest, Help_and_version_need_no_display) {
  EXPECT_EQ(Run("--help").code, 0);
  const Outcome version = Run("--version");
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out.substr(0, 14), "koru-counting ");
  const Outcome wrong = Run("--wrong");
  EXPECT_EQ(wrong.code, 2);
  EXPECT_EQ(wrong.error, "koru-counting: گزينة ناشناخته: --wrong\n");
}

}  // namespace
}  // namespace koru
