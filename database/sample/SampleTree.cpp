#include "database/sample/SampleTree.h"

#include <map>

#include "database/sample/SampleRows.h"

namespace koru::sample {

void WriteClosure(SqliteConnection& connection, const std::string& table,
                  std::span<const std::pair<int, int>> nodes) {
  RowWriter rows = RowWriter::Inserts(connection, table);
  std::map<int, int> parents;
  for (const auto& [node, parent] : nodes) {
    parents[node] = parent;
    for (int above = parent; above != 0; above = parents.at(above)) {
      rows.Write({{"ID", above}, {"ChildID", node}});
    }
  }
}

}  // namespace koru::sample
