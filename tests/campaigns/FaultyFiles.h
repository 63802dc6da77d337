#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace koru::test {

/// While it lives, SQLite reaches its files through it (its VFS is the default one). It counts the calls that
/// reach for a file, and lets one of them go wrong; everything else is done by the VFS that was the default
/// before. Connections must be closed before it is destroyed.
class FaultyFiles {
 public:
  enum class Fault {
    None,
    Once,      ///< the call fails, with an I/O error or, when it writes, a full disk; the next ones succeed
    PowerCut,  ///< the call and all after it fail, and nothing more reaches the files
    Kill       ///< the process is killed by SIGKILL; of a write, half is done
  };

  FaultyFiles();
  FaultyFiles(const FaultyFiles&) = delete;
  FaultyFiles& operator=(const FaultyFiles&) = delete;
  ~FaultyFiles();

  /// Counts from 0 again; the n-th call from now on (from 1) fails.
  void Arrange(Fault fault, long n);
  /// The calls since Arrange.
  [[nodiscard]] long Calls() const { return calls_; }

  /// Whether the call that failed was to bring a file's changes to the disk.
  [[nodiscard]] bool HasFailedSync() const { return hasFailedSync_; }

  /// What the disk may hold after the power cut, written into `folder`: of each file all that was synced, and
  /// of what was not, any sectors in any order. The index of a write-ahead log is memory and is left out.
  void WriteDisk(const std::filesystem::path& folder, std::mt19937& random) const;

 private:
  friend struct FaultyFileMethods;

  struct Change {
    std::int64_t offset = 0;  ///< where a write begins; of a truncation, the size that stays
    std::string bytes;        ///< empty for a truncation
  };
  /// A file as the disk surely holds it, and what was done to it since.
  struct Tracked {
    std::optional<std::string> synced;
    std::vector<Change> unsynced;
  };

  /// Counts a call; answers the result with which it must fail, or SQLITE_OK.
  int Count(int failure);
  [[nodiscard]] bool IsDown() const { return fault_ == Fault::PowerCut && calls_ >= failAt_; }
  [[nodiscard]] bool KillsNow() const { return fault_ == Fault::Kill && calls_ + 1 == failAt_; }
  Tracked& Track(const std::string& path);

  sqlite3_vfs* inner_;
  sqlite3_vfs vfs_{};
  sqlite3_io_methods methods_{};
  Fault fault_ = Fault::None;
  long calls_ = 0;
  long failAt_ = 0;
  bool hasFailedSync_ = false;
  std::map<std::string, Tracked> files_;
};

}  // namespace koru::test
