#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru::test {

/// Names in lower case, as the server compares them.
using Columns = std::set<std::string>;

/// The tables that `create table` batches make, with their columns, and for each column the first word of its
/// type; a computed column's is "as".
struct ScriptTable {
  std::map<std::string, std::string> types;
  std::map<std::string, int> lengths;  ///< of nvarchar columns, in UTF-16 units; `max` is the largest int
  [[nodiscard]] Columns Names() const;
};
[[nodiscard]] std::map<std::string, ScriptTable> TablesOf(const std::vector<SqlText>& batches);

/// The views that `create view` batches make, with the columns of their outermost selection.
[[nodiscard]] std::map<std::string, Columns> ViewsOf(const std::vector<SqlText>& batches);

/// The words, literals and symbols of a batch, without comments.
[[nodiscard]] std::vector<std::string> TokensOf(const SqlText& batch);

}  // namespace koru::test
