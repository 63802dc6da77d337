#pragma once

#include <string_view>
#include <vector>

namespace koru {

/// The component's write access to a table.
enum class Writes { None, InsertDelete, InsertUpdateDelete };

/// A table or view and the columns that the component's statements name. The suite's table may have further
/// columns.
struct NeededTable {
  std::string_view name;
  std::vector<std::string_view> columns;
  Writes writes = Writes::None;
};

/// All tables and views of the component.
[[nodiscard]] const std::vector<NeededTable>& NeededTables();

}  // namespace koru
