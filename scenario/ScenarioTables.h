#pragma once

#include <filesystem>
#include <functional>
#include <utility>

#include "platform/ports/TableFiles.h"
#include "scenario/Scenario.h"

namespace koru {

/// Reads a file as TableFiles::Read does. The program passes it, because the reader of workbooks needs Qt,
/// which scenarios on the forms do not link.
using TableReader = std::function<std::optional<FileTable>(const std::string& path, std::size_t sheet,
                                                           const TableFiles::Progress& progress)>;

/// The files of the user of a scenario: `file` steps put them where the user chooses them.
class ScenarioTables : public TableFiles {
 public:
  explicit ScenarioTables(TableReader read) : read_(std::move(read)) {}

  /// Carries out a `file` step: writes the file into `folder`, or finds it in `exported`, the folder of the
  /// scenario's workbooks. Throws ScenarioFailure.
  void Put(const ScenarioStep& step, const std::filesystem::path& folder,
           const std::filesystem::path& exported);

  [[nodiscard]] std::string Choose() override { return chosen_; }
  [[nodiscard]] std::optional<FileTable> Read(const std::string& path, std::size_t sheet,
                                              const Progress& progress) override;

 private:
  TableReader read_;
  std::string chosen_;
};

}  // namespace koru
