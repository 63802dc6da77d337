#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "adapters/system/TemporaryFolder.h"
#include "host/IniFile.h"

namespace {

/// What the program asks of the disk, in order; the system's calls below record it.
std::vector<std::string>& Calls() {
  static std::vector<std::string> calls;
  return calls;
}

std::string NameOf(int descriptor) {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), unknown)
      .filename()
      .string();
}

}  // namespace

// These replace the system's in this test program, and do the same.
extern "C" int fsync(int descriptor) {
  Calls().push_back("sync " + NameOf(descriptor));
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}
extern "C" int rename(const char* from, const char* to) noexcept {
  Calls().push_back("rename " + std::filesystem::path(from).filename().string() + " " +
                    std::filesystem::path(to).filename().string());
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace koru {
namespace {

TEST(IniFileCrash, The_new_settings_are_on_the_disk_before_they_replace_the_old_ones) {
  const TemporaryFolder folder;
  IniFile ini = IniFile::Read(folder.Path() / "a.ini");
  ini.Set("s", "k", "1");
  Calls().clear();
  ini.Write();
  EXPECT_EQ(Calls(), (std::vector<std::string>{"sync a.ini.new", "rename a.ini.new a.ini",
                                               "sync " + folder.Path().filename().string()}));
}

}  // namespace
}  // namespace koru
