#pragma once

#include <QIODevice>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "adapters/sheet/TableBuilder.h"

namespace koru {

// The XML parts of a workbook. All functions throw InputError for a part that is damaged, hostile or exceeds
// a limit (XmlPart, TableBuilder).

/// A sheet as the workbook lists it.
struct SheetEntry {
  std::string name;
  std::string relation;  ///< the key of its part
  bool hidden = false;
};
[[nodiscard]] std::vector<SheetEntry> ReadSheetList(QIODevice& part);

/// The parts that a part refers to.
struct PartRelation {
  std::string type;  ///< the last segment: `worksheet`, `sharedStrings`, `officeDocument`
  std::string target;
};
[[nodiscard]] std::map<std::string, PartRelation> ReadRelations(QIODevice& part);

/// Called with the number of bytes read so far; false cancels.
using PartProgress = std::function<bool(std::int64_t bytes)>;

/// The texts that cells refer to by their numbers. Nothing if `progress` cancels.
[[nodiscard]] std::optional<std::vector<std::string>> ReadSharedTexts(QIODevice& part,
                                                                      const PartProgress& progress);

/// Reads the cells of a sheet: texts of their own and shared ones, numbers as NumberText writes them, truth
/// values as TRUE and FALSE, errors and the results of formulas as they are. Of merged cells only the first
/// has a text. False if `progress` cancels.
[[nodiscard]] bool ReadCells(QIODevice& part, const std::vector<std::string>& shared, TableBuilder& table,
                             const PartProgress& progress);

}  // namespace koru
