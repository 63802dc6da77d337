#include "database/sample/SampleTree.h"

#include <map>

#include "database/sample/SampleRows.h"

namespace koru::sample {

void WriteClosure(SqliteConnection& connection, const std::string& table,
                  std::span<const std::pair<int, int>> nodes) {
  SqliteStatement insert = connection.Prepare("insert into " + table + " (ID, ChildID) values (?, ?)");
  std::map<int, int> parents;
  for (const auto& [node, parent] : nodes) {
    parents[node] = parent;
    for (int above = parent; above != 0; above = parents.at(above)) Insert(insert, above, node);
  }
}

}  // namespace koru::sample
