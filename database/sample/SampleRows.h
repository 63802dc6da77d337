#pragma once

#include <optional>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/text/Date.h"

namespace koru::sample {

template <typename V>
void BindField(SqliteStatement& statement, int parameter, const V& value) {
  statement.Bind(parameter, value);
}

inline void BindField(SqliteStatement& statement, int parameter, const Date& day) {
  statement.Bind(parameter, IsoText(day));
}

/// Binds NULL when there is no value.
template <typename V>
void BindField(SqliteStatement& statement, int parameter, const std::optional<V>& value) {
  if (value) {
    BindField(statement, parameter, *value);
  } else {
    statement.Bind(parameter, nullptr);
  }
}

/// Binds the values to the statement's parameters, in order, and runs it.
template <typename... V>
void Insert(SqliteStatement& statement, const V&... values) {
  int parameter = 0;
  (BindField(statement, ++parameter, values), ...);
  statement.Run();
}

}  // namespace koru::sample
