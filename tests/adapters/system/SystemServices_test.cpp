#include "adapters/system/SystemServices.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/text/FilePath.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

TEST(SystemFileSystem, Finds_files_by_their_persian_names_and_no_folders) {
  const test::TemporaryFolder folder;
  const std::string file = folder.File("گزارش.rpt");
  EXPECT_FALSE(SystemFileSystem().FileExists(file));
  std::ofstream(PathOf(file)) << "x";
  EXPECT_TRUE(SystemFileSystem().FileExists(file));
  std::filesystem::create_directory(PathOf(folder.File("پوشه")));
  EXPECT_FALSE(SystemFileSystem().FileExists(folder.File("پوشه")));
}

}  // namespace
}  // namespace koru
