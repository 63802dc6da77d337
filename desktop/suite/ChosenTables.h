#pragma once

#include <QString>

#include "platform/ports/TableFiles.h"

namespace koru {

/// The files of tables that the user chooses in a dialog: at first in the documents folder, then where the
/// last one was.
class ChosenTables : public TableFiles {
 public:
  [[nodiscard]] std::string Choose() override;
  [[nodiscard]] std::optional<FileTable> Read(const std::string& path, std::size_t sheet,
                                              const Progress& progress) override;

 private:
  QString last_;
};

}  // namespace koru
