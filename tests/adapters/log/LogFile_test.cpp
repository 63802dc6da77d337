#include "adapters/log/LogFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>
#include <vector>

#include "platform/text/FilePath.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

using std::chrono::milliseconds;

std::string ContentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> LinesOf(const std::string& path) {
  std::istringstream content(ContentOf(path));
  std::vector<std::string> lines;
  for (std::string line; std::getline(content, line);) lines.push_back(line);
  return lines;
}

/// The error output of a piece of work.
template <class Work>
std::string ErrorsOf(const Work& work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

class LogFileTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path() const { return (folder_.Path() / "koru.log").string(); }

  test::TemporaryFolder folder_;
};

TEST_F(LogFileTest, A_line_has_when_how_long_who_the_outcome_and_the_text) {
  LogFile log({Path(), false, "4711"});
  const auto when = LogFile::Clock::now();
  log.Append(when, std::chrono::microseconds(1234567), "2", "3 rows", "Select 1\r\n\tas A");
  const auto lines = LinesOf(Path());
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[0].ends_with("\t0.000 ms\t4711\tprogram\tbegins\ttyped texts are masked")) << lines[0];
  EXPECT_TRUE(lines[1].ends_with("\t1234.567 ms\t4711\t2\t3 rows\tSelect 1\\r\\n\\tas A")) << lines[1];
  EXPECT_EQ(lines[1].find('\t'), std::string_view("2025-12-21 09:03:20.123+0330").size()) << lines[1];
  EXPECT_EQ(lines[1][10], ' ');
  EXPECT_EQ(lines[1][19], '.');
}

TEST_F(LogFileTest, Is_continued_by_the_next_program) {
  { const LogFile first({Path(), false, "1"}); }
  { const LogFile second({Path(), true, "2"}); }
  const auto lines = LinesOf(Path());
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[1].ends_with("\t2\tprogram\tbegins\ttyped texts are written")) << lines[1];
}

TEST_F(LogFileTest, May_have_a_persian_name) {
  { const LogFile log({folder_.File("گزارش كار.log"), false, "1"}); }
  std::ifstream stream(PathOf(folder_.File("گزارش كار.log")), std::ios::binary);
  std::string line;
  EXPECT_TRUE(std::getline(stream, line));
}

TEST_F(LogFileTest, Has_the_time_zones_offset) {
  const char* const zone = std::getenv("TZ");
  ASSERT_TRUE(zone != nullptr && std::string(zone) == "Asia/Tehran")
      << "run with TZ=Asia/Tehran, as ctest does";
  LogFile log({Path(), false, "1"});
  log.Append(LogFile::Clock::from_time_t(1'764'570'600), {}, "1", "done", "");  // 06:30 UTC
  EXPECT_TRUE(LinesOf(Path()).at(1).starts_with("2025-12-01 10:00:00.000+0330\t")) << LinesOf(Path()).at(1);
}

TEST_F(LogFileTest, Lines_of_several_programs_and_threads_do_not_mix) {
  constexpr int kLines = 200;
  LogFile one({Path(), false, "1"});
  LogFile two({Path(), false, "2"});
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&log = thread % 2 == 0 ? one : two, thread] {
      const std::string text(20'000, static_cast<char>('a' + thread));
      for (int line = 0; line < kLines; ++line) log.Append(LogFile::Clock::now(), {}, "1", "done", text);
    });
  }
  for (std::thread& thread : threads) thread.join();
  const auto lines = LinesOf(Path());
  EXPECT_EQ(lines.size(), 2U + 4 * kLines);
  for (std::size_t line = 2; line < lines.size(); ++line) {
    const std::string text = lines[line].substr(lines[line].rfind('\t') + 1);
    ASSERT_EQ(text, std::string(20'000, text.front())) << line;
  }
}

TEST_F(LogFileTest, That_cannot_be_opened_is_reported_once) {
  const std::string nowhere = (folder_.Path() / "none" / "koru.log").string();
  const std::string errors = ErrorsOf([&] {
    LogFile log({nowhere, false, "1"});
    EXPECT_FALSE(log.IsOn());
    log.Append(LogFile::Clock::now(), {}, "1", "done", "Select 1");
  });
  EXPECT_TRUE(errors.starts_with("koru: the log " + nowhere + " is not written: ")) << errors;
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

TEST_F(LogFileTest, Is_no_database) {
  const test::TestFile database;
  const std::string before = ContentOf(database.File());
  const std::string errors = ErrorsOf([&] { EXPECT_FALSE(LogFile({database.File(), false, "1"}).IsOn()); });
  EXPECT_EQ(errors, "koru: the log " + database.File() + " is not written: a database\n");
  EXPECT_EQ(ContentOf(database.File()), before);
}

TEST_F(LogFileTest, Is_off_without_a_path) {
  EXPECT_EQ(ErrorsOf([] { EXPECT_FALSE(LogFile({}).IsOn()); }), "");
}

}  // namespace
}  // namespace koru
