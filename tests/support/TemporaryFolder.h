#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace koru::test {

/// A fresh, empty folder, removed with its contents.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// The UTF-8 path of a file in the folder, which need not be there.
  [[nodiscard]] std::string File(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace koru::test
