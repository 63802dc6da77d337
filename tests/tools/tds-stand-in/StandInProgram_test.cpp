#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

/// Runs koru-tds-stand-in.
class StandInProgram : public testing::Test {
 protected:
  /// The exit status; `environment` are arguments for `env`.
  [[nodiscard]] int Run(const std::string& arguments,
                        const std::string& environment = "-u KORU_SQLSERVER") const {
    const std::string command = "env " + environment + " '" KORU_STAND_IN_SERVER "' " + arguments + " >'" +
                                File("out") + "' 2>'" + File("error") + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  [[nodiscard]] std::string File(const std::string& name) const { return folder_.File(name); }
  [[nodiscard]] std::string Text(const std::string& name) const {
    std::ifstream stream(File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(StandInProgram, The_command_finds_a_server_and_its_end_is_the_programs) {
  EXPECT_EQ(Run(R"(sh -c 'printf %s "$KORU_SQLSERVER"; exit 7')"), 7);
  EXPECT_TRUE(Text("out").starts_with("Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1,"))
      << Text("out");
  EXPECT_EQ(Run("sh -c 'kill -TERM $$'"), 128 + 15);
  EXPECT_EQ(Run("sh -c 'kill -INT $$'"), 128 + 2);
}

TEST_F(StandInProgram, A_server_that_is_named_already_is_the_commands) {
  EXPECT_EQ(Run(R"(sh -c 'printf %s "$KORU_SQLSERVER"; exit 3')", "KORU_SQLSERVER='of the house'"), 3);
  EXPECT_EQ(Text("out"), "of the house");
}

TEST_F(StandInProgram, A_command_that_is_not_there_is_named) {
  for (const char* environment : {"-u KORU_SQLSERVER", "KORU_SQLSERVER=x"}) {
    EXPECT_EQ(Run("no-such-command", environment), 127);
    EXPECT_TRUE(Text("error").starts_with("no-such-command: ")) << Text("error");
  }
}

TEST_F(StandInProgram, Without_a_command_it_says_how_it_is_used) {
  EXPECT_EQ(Run(""), 2);
  EXPECT_TRUE(Text("error").starts_with("usage: koru-tds-stand-in COMMAND")) << Text("error");
  EXPECT_EQ(Text("out"), "");
}

}  // namespace
}  // namespace koru::test
