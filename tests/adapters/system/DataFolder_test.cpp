#include "adapters/system/DataFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

TEST(DataFolder, Is_share_of_the_prefix_that_the_program_is_installed_in) {
  EXPECT_EQ(DataFolderOf("/usr/bin/koru-counting"), "/usr/share/koru-counting");
  EXPECT_EQ(DataFolderOf("/opt/suite/bin/koru-counting"), "/opt/suite/share/koru-counting");
}

TEST(DataFolder, Is_beside_a_program_that_has_not_been_installed) {
  const test::TemporaryFolder folder;
  const std::filesystem::path data = folder.Path() / "share" / "koru-counting";
  std::filesystem::create_directories(data);
  EXPECT_EQ(DataFolderOf(folder.Path() / "koru-counting"), data);
}

TEST(DataFolder, Of_a_build_tree_has_the_reports_of_the_source_tree) {
  EXPECT_TRUE(std::filesystem::is_regular_file(DataFolder() / "reports" / "counting.rpt.txt"));
}

}  // namespace
}  // namespace koru
