#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru::test {

/// Names in lower case, because the server ignores case.
using Columns = std::set<std::string>;

/// The tables of the `create table` batches with their columns, and for each column the first word of its
/// type ("as" for a computed column).
struct ScriptTable {
  std::map<std::string, std::string> types;
  std::map<std::string, int> lengths;  ///< of nvarchar columns, in UTF-16 units; `max` is the largest int
  [[nodiscard]] Columns Names() const;
};
[[nodiscard]] std::map<std::string, ScriptTable> TablesOf(const std::vector<SqlText>& batches);

/// The views of the `create view` batches, with the columns of the outermost selection.
[[nodiscard]] std::map<std::string, Columns> ViewsOf(const std::vector<SqlText>& batches);

/// The words, literals and symbols of a batch, without comments.
[[nodiscard]] std::vector<std::string> TokensOf(const SqlText& batch);

}  // namespace koru::test
