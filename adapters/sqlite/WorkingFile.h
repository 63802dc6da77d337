#pragma once

#include <filesystem>

namespace koru {

/// RAII name under which a database file is made beside its later place: `<target>.new-<digits>`. The file is
/// removed at destruction, with its journals, unless it was renamed.
class WorkingFile {
 public:
  explicit WorkingFile(const std::filesystem::path& target);
  WorkingFile(const WorkingFile&) = delete;
  WorkingFile& operator=(const WorkingFile&) = delete;
  ~WorkingFile();

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace koru
