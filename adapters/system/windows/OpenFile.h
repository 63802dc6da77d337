#pragma once

#include <windows.h>

#include <filesystem>
#include <utility>

namespace koru {

/// RAII handle of a file that nobody else may open meanwhile.
class OpenFile {
 public:
  OpenFile(const std::filesystem::path& file, DWORD access, DWORD disposition, DWORD attributes)
      : handle_(CreateFileW(file.c_str(), access, 0, nullptr, disposition, attributes, nullptr)) {}
  OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (IsOpen()) CloseHandle(handle_);
  }

  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace koru
