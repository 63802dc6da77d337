#pragma once

#include <variant>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementShape.h"

namespace koru {

/// Gives the parameters 1, 2, ... of a statement their values.
inline void BindAll(SqliteStatement& statement, const std::vector<Literal>& literals) {
  int parameter = 0;
  for (const Literal& literal : literals) {
    ++parameter;
    std::visit([&](const auto& value) { statement.Bind(parameter, value); }, literal);
  }
}

}  // namespace koru
