#pragma once

#include <filesystem>
#include <memory>
#include <system_error>

namespace koru {

/// RAII lock between programs, by an empty file that exists while the lock is held. It also excludes other
/// objects of the same program, and ends with the program, however that ends; the file may then be left, and
/// the next holder takes it over.
class LockFile {
 public:
  /// Holds nothing.
  LockFile();
  /// Takes the lock, or sets `error` where another one holds it or the file cannot be made.
  LockFile(const std::filesystem::path& file, std::error_code& error);
  LockFile(LockFile&& other) noexcept;
  LockFile& operator=(LockFile&& other) noexcept;
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  ~LockFile();

  [[nodiscard]] bool IsHeld() const { return held_ != nullptr; }

 private:
  class Held;
  std::unique_ptr<Held> held_;
};

}  // namespace koru
