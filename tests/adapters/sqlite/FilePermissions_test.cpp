// Permissions as POSIX systems have them, which Windows does not.

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/adapters/sqlite/OpeningAFile.h"

namespace koru::test {
namespace {

/// Somebody whom the permissions of files bind, also where the tests run as the superuser.
class AsOrdinaryPerson {
 public:
  AsOrdinaryPerson() {
    if (isSuperuser_) Become(65534);
  }
  AsOrdinaryPerson(const AsOrdinaryPerson&) = delete;
  AsOrdinaryPerson& operator=(const AsOrdinaryPerson&) = delete;
  ~AsOrdinaryPerson() {
    if (isSuperuser_) Become(0);
  }

 private:
  static void Become(uid_t user) { EXPECT_EQ(seteuid(user), 0); }
  bool isSuperuser_ = geteuid() == 0;
};

TEST_F(OpeningAFile, A_file_without_permission_is_named) {
  const std::string file = folder_.File("theirs.koru");
  std::filesystem::copy_file(database_.File(), file);
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(file.c_str(), 0), 0);
  const AsOrdinaryPerson ordinary;
  ExpectSays(Refusal(TextFor(file)), "اجازة", file);
}

TEST_F(OpeningAFile, A_file_that_may_only_be_read_is_refused_and_unchanged) {
  const std::string file = folder_.File("archive.koru");
  std::filesystem::copy_file(database_.File(), file);
  const std::string before = Content(file);
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0555), 0);
  ASSERT_EQ(chmod(file.c_str(), 0444), 0);
  {
    const AsOrdinaryPerson ordinary;
    ExpectSays(Refusal(TextFor(file)), "اجازة", file);
  }
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  EXPECT_EQ(Content(file), before);
}

}  // namespace
}  // namespace koru::test
