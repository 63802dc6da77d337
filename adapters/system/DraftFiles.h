#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "platform/ports/DraftStore.h"

namespace koru {

/// Drafts as files of a folder, which is made with the first one: `<owner>-<random>.draft`, readable by the
/// user of the machine alone. A file is replaced as a whole. The program that keeps it holds a LockFile
/// beside it, so that only the drafts of programs that have ended are found. Without drafts the folder is
/// empty.
class DraftFiles : public DraftStore {
 public:
  explicit DraftFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::unique_ptr<Draft> Begin(const DraftOwner& owner) override;
  [[nodiscard]] std::unique_ptr<Draft> FindLeft(const DraftOwner& owner) override;

 private:
  std::filesystem::path folder_;
};

}  // namespace koru
