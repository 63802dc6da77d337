#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "platform/ports/FloorJournal.h"

namespace koru {

/// Journals as files of a folder, which is made with the first one: `<database>-<counting>.journal`, readable
/// by the user of the machine alone. What was synced is on the disk, and so is the name of a file that was
/// made. The program that has a journal holds a LockFile beside it. Journals that were set aside are
/// `<database>-<counting>-<seconds since 1970>.aside`, each later than those before it, whatever the clock
/// says; those of more than 30 days are removed when a journal is opened.
class FloorJournalFiles : public FloorJournalStore {
 public:
  explicit FloorJournalFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::unique_ptr<FloorJournal> Open(const FloorJournalOwner& owner) override;
  [[nodiscard]] bool Has(const FloorJournalOwner& owner) const override;

 private:
  std::filesystem::path folder_;
};

}  // namespace koru
