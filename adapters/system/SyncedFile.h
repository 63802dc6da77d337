#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

namespace koru {

/// RAII file of one program at whose end texts are written, and which can be put on the disk.
class SyncedFile {
 public:
  SyncedFile();
  SyncedFile(const SyncedFile&) = delete;
  SyncedFile& operator=(const SyncedFile&) = delete;
  ~SyncedFile();

  /// The file must exist.
  [[nodiscard]] std::error_code Open(const std::filesystem::path& file);
  [[nodiscard]] bool IsOpen() const { return file_ != nullptr; }
  /// Appends the text. On failure nothing of it remains at the end of the file, or the file is closed where
  /// that cannot be reached. The file must be open.
  [[nodiscard]] std::error_code Append(std::string_view text);
  /// What was appended is on the disk afterwards.
  [[nodiscard]] std::error_code Sync();
  void Close();

 private:
  class Opened;
  std::unique_ptr<Opened> file_;
};

}  // namespace koru
