#pragma once

#include <filesystem>

namespace koru {

/// A new folder among the system's temporary files, open to its owner alone; removed with its contents on
/// destruction.
class TemporaryFolder {
 public:
  /// Throws InputError when no folder can be made.
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace koru
