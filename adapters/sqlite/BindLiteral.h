#pragma once

#include <variant>
#include <vector>

#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// Binds the values to the parameters 1, 2, ... of a statement.
inline void BindAll(SqliteStatement& statement, const std::vector<Literal>& literals) {
  int parameter = 0;
  for (const Literal& literal : literals) {
    ++parameter;
    std::visit([&](const auto& value) { statement.Bind(parameter, value); }, literal);
  }
}

}  // namespace koru
