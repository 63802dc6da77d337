#pragma once

#include <optional>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/ports/TableFiles.h"
#include "services/SharedState.h"

namespace koru {

/// The command mnuImport: counts from a file of the user, after a preview (frmCountImport).
class ImportCounts {
 public:
  /// Both must outlive the command.
  ImportCounts(InvCountingControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Lets the user choose a file, reads it, shows what would come in, and enters it if the user says so.
  /// Returns a sentence about what came in; empty when nothing was entered. Throws InputError for a file that
  /// cannot be read, and changes nothing.
  std::string Run();

 private:
  [[nodiscard]] std::optional<FileTable> Read(const std::string& file, std::size_t sheet);

  InvCountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
