#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

namespace koru {

/// RAII file at whose end texts are written. Each text is a whole there, whichever other objects and programs
/// append to the same file.
class AppendedFile {
 public:
  AppendedFile();
  AppendedFile(const AppendedFile&) = delete;
  AppendedFile& operator=(const AppendedFile&) = delete;
  ~AppendedFile();

  /// Makes the file if it does not exist.
  [[nodiscard]] std::error_code Open(const std::filesystem::path& file);
  [[nodiscard]] bool IsOpen() const { return file_ != nullptr; }
  /// The file must be open.
  [[nodiscard]] std::error_code Append(std::string_view text);
  void Close();

 private:
  class Opened;
  std::unique_ptr<Opened> file_;
};

}  // namespace koru
