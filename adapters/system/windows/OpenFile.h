#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string_view>
#include <utility>

namespace koru {

/// RAII handle of a file.
class OpenFile {
 public:
  static constexpr DWORD kNobody = 0;
  static constexpr DWORD kEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

  /// `others` is who may open the file meanwhile.
  OpenFile(const std::filesystem::path& file, DWORD access, DWORD others, DWORD disposition,
           DWORD attributes = FILE_ATTRIBUTE_NORMAL)
      : handle_(CreateFileW(file.c_str(), access, others, nullptr, disposition, attributes, nullptr)) {}
  OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (IsOpen()) CloseHandle(handle_);
  }

  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE Handle() const { return handle_; }

  /// Sets the thread's last error on failure.
  [[nodiscard]] bool Write(std::string_view text) const {
    while (!text.empty()) {
      constexpr std::size_t kMaxPart = std::numeric_limits<DWORD>::max();
      DWORD written = 0;
      if (WriteFile(handle_, text.data(), static_cast<DWORD>(std::min(text.size(), kMaxPart)), &written,
                    nullptr) == 0) {
        return false;
      }
      text.remove_prefix(written);
    }
    return true;
  }

 private:
  HANDLE handle_;
};

}  // namespace koru
