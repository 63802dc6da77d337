#pragma once

#include <filesystem>

#include "platform/ports/TableFiles.h"
#include "scenario/Scenario.h"

namespace koru {

/// The files of the user of a scenario: `file` steps put them where the user chooses them.
class ScenarioTables : public TableFiles {
 public:
  /// Carries out a `file` step: writes the file into `folder`, or finds it in `exported`, the folder of the
  /// scenario's workbooks. Throws ScenarioFailure.
  void Put(const ScenarioStep& step, const std::filesystem::path& folder,
           const std::filesystem::path& exported);

  [[nodiscard]] std::string Choose() override { return chosen_; }
  [[nodiscard]] std::optional<FileTable> Read(const std::string& path, std::size_t sheet,
                                              const Progress& progress) override;

 private:
  std::string chosen_;
};

}  // namespace koru
