#include "adapters/system/LockFile.h"

#include <gtest/gtest.h>

#include <utility>

#include "adapters/system/ErrorText.h"
#include "platform/text/FilePath.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

TEST(LockFile, Is_held_by_one_alone_and_leaves_no_file) {
  const test::TemporaryFolder folder;
  const std::filesystem::path file = PathOf(folder.File("قفل"));
  std::error_code error;
  LockFile first(file, error);
  EXPECT_TRUE(first.IsHeld()) << ErrorText(error);
  const LockFile second(file, error);
  EXPECT_FALSE(second.IsHeld());
  EXPECT_TRUE(error);
  EXPECT_NE(ErrorText(error), "");
  LockFile moved(std::move(first));
  EXPECT_TRUE(moved.IsHeld());
  moved = LockFile();
  EXPECT_FALSE(std::filesystem::exists(file));
  error.clear();
  EXPECT_TRUE(LockFile(file, error).IsHeld()) << ErrorText(error);
}

TEST(LockFile, Cannot_be_in_a_folder_that_does_not_exist) {
  const test::TemporaryFolder folder;
  std::error_code error;
  EXPECT_FALSE(LockFile(folder.Path() / "none" / "lock", error).IsHeld());
  EXPECT_TRUE(error);
}

}  // namespace
}  // namespace koru
