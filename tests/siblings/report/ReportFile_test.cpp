#include "siblings/report/ReportFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"
#include "reports/BuiltInReports.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

class ReportFilePlace : public ::testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) {
    const std::filesystem::path path = PathOf(folder.File(name));
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << text;
  }

  [[nodiscard]] std::string Read(const std::string& name) const {
    return ReadReportFile(name, folder.Path() / "share");
  }

  [[nodiscard]] std::string Refusal(const std::string& name) const {
    try {
      static_cast<void>(Read(name));
    } catch (const InputError& refused) {
      return refused.what();
    }
    return "no failure";
  }

  test::TemporaryFolder folder;
};

TEST_F(ReportFilePlace, Without_a_base_folder_is_the_programs_own_folder) {
  Write("share/reports/mine.rpt.txt", "page A5");
  EXPECT_EQ(Read("reports/mine.rpt.txt"), "page A5");
  Write("share/reports/counting.rpt.txt", "page A4");
  EXPECT_EQ(Read(folder.File("share/reports/counting.rpt.txt")), "page A4");
}

TEST_F(ReportFilePlace, Of_the_program_may_lack_a_report_which_is_then_the_built_in_one) {
  EXPECT_EQ(Read("reports/counting.rpt.txt"), FindBuiltInReport("reports/counting.rpt.txt"));
  EXPECT_EQ(Read(folder.File("share/reports/counting.rpt.txt")),
            FindBuiltInReport("reports/counting.rpt.txt"));
  EXPECT_EQ(Read(folder.File("share/../share/reports/counting.rpt.txt")),
            FindBuiltInReport("reports/counting.rpt.txt"));
}

TEST_F(ReportFilePlace, Of_the_suite_that_lacks_a_report_is_reported_and_nothing_built_in_replaces_it) {
  Write("base/other.rpt.txt", "");
  const std::string name = folder.File("base/reports/counting.rpt.txt");
  EXPECT_EQ(Refusal(name), "قالب گزارش " + LeftToRight(name) + ": پوشة " +
                               LeftToRight(folder.File("base/reports")) + " نيست.");
  std::filesystem::create_directories(folder.Path() / "base" / "reports");
  EXPECT_EQ(Refusal(name), "قالب گزارش " + LeftToRight(name) + ": چنين پرونده اي نيست.");
}

TEST_F(ReportFilePlace, That_does_not_exist_is_named) {
  const std::string name = folder.File("gone/reports/counting.rpt.txt");
  EXPECT_EQ(Refusal(name),
            "قالب گزارش " + LeftToRight(name) + ": پوشة " + LeftToRight(folder.File("gone")) + " نيست.");
}

TEST_F(ReportFilePlace, Of_the_program_has_no_built_in_report_of_another_name) {
  EXPECT_EQ(Refusal("reports/mine.rpt.txt"),
            "قالب گزارش " + LeftToRight("reports/mine.rpt.txt") + ": چنين پرونده اي نيست.");
  EXPECT_EQ(Refusal("elsewhere/reports/counting.rpt.txt"),
            "قالب گزارش " + LeftToRight("elsewhere/reports/counting.rpt.txt") + ": چنين پرونده اي نيست.");
}

TEST_F(ReportFilePlace, May_have_a_persian_name_as_the_report_may) {
  Write("گزارش هاي من/شمارش پاييز.rpt.txt", "page A5");
  EXPECT_EQ(Read(folder.File("گزارش هاي من/شمارش پاييز.rpt.txt")), "page A5");
  const std::string missing = folder.File("گزارش هاي پيشين/شمارش.rpt.txt");
  EXPECT_EQ(Refusal(missing), "قالب گزارش " + LeftToRight(missing) + ": پوشة " +
                                  LeftToRight(folder.File("گزارش هاي پيشين")) + " نيست.");
}

TEST_F(ReportFilePlace, May_be_any_in_which_the_report_exists) {
  Write("base/reports/counting.rpt.txt", "page A3");
  EXPECT_EQ(Read(folder.File("base/reports/counting.rpt.txt")), "page A3");
}

}  // namespace
}  // namespace koru
