#pragma once

#include <string_view>
#include <vector>

namespace koru {

/// What the component does to a table beyond reading it.
enum class Writes { None, InsertDelete, InsertUpdateDelete };

/// A table or view and the columns by which the component's statements name it. The suite's own may have
/// more.
struct NeededTable {
  std::string_view name;
  std::vector<std::string_view> columns;
  Writes writes = Writes::None;
};

/// All of them.
[[nodiscard]] const std::vector<NeededTable>& NeededTables();

}  // namespace koru
