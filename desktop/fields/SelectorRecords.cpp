#include "desktop/fields/SelectorRecords.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/text/PersianText.h"

namespace koru {
namespace {

std::vector<SelectorRecord> ReadRecords(Database& database, const SqlText& statement) {
  Recordset rows = database.Open(statement);
  std::vector<SelectorRecord> records;
  records.reserve(rows.RecordCount());
  for (; !rows.AtEnd(); rows.MoveNext()) {
    records.push_back({rows.Field(0).Integer(), rows.Field(1).Text(), SelectorRecord::kNoParent, true});
  }
  return records;
}

using Ancestors = std::map<std::int32_t, std::set<std::int32_t>>;

Ancestors ReadAncestors(Database& database, const TreeSelector& selector) {
  Recordset pairs = database.Open(SqlText("select ID,ChildID from ") + SqlName(selector.ParentTable()));
  Ancestors ancestors;
  for (; !pairs.AtEnd(); pairs.MoveNext()) {
    const std::int32_t node = pairs.Field(0).Integer();
    const std::int32_t child = pairs.Field(1).Integer();
    if (node != child) ancestors[child].insert(node);
  }
  return ancestors;
}

/// Whether making `parent` the parent of `node` would create a cycle.
bool ClosesACircle(const std::vector<SelectorRecord>& records, int node, int parent) {
  for (int above = parent; above != SelectorRecord::kNoParent;
       above = records[static_cast<std::size_t>(above)].parent) {
    if (above == node) return true;
  }
  return false;
}

void FindParents(std::vector<SelectorRecord>& records, const Ancestors& ancestors) {
  std::map<std::int32_t, int> places;
  for (std::size_t i = 0; i < records.size(); ++i) places.emplace(records[i].id, static_cast<int>(i));
  const auto depth = [&](std::int32_t id) {
    const auto found = ancestors.find(id);
    return found == ancestors.end() ? std::size_t{0} : found->second.size();
  };
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto above = ancestors.find(records[i].id);
    if (above == ancestors.end()) continue;
    std::size_t deepest = 0;
    int parent = SelectorRecord::kNoParent;
    for (const std::int32_t ancestor : above->second) {
      const auto place = places.find(ancestor);
      if (place == places.end() || (parent != SelectorRecord::kNoParent && depth(ancestor) <= deepest))
        continue;
      deepest = depth(ancestor);
      parent = place->second;
    }
    if (!ClosesACircle(records, static_cast<int>(i), parent)) records[i].parent = parent;
  }
}

void MarkOffered(std::vector<SelectorRecord>& records, const TreeSelector& selector) {
  std::vector<bool> isLeaf(records.size(), true);
  for (const SelectorRecord& record : records) {
    if (record.parent != SelectorRecord::kNoParent) isLeaf[static_cast<std::size_t>(record.parent)] = false;
  }
  for (std::size_t i = 0; i < records.size(); ++i)
    records[i].offered = selector.Offers(records[i].id, isLeaf[i]);
}

void SortByName(std::vector<SelectorRecord>& records) {
  std::map<std::int32_t, std::string> keys;
  for (const SelectorRecord& record : records) keys.emplace(record.id, PersianSortKey(record.name));
  std::stable_sort(records.begin(), records.end(), [&](const SelectorRecord& a, const SelectorRecord& b) {
    return keys.at(a.id) < keys.at(b.id);
  });
}

}  // namespace

std::vector<SelectorRecord> SelectorRecords::Tree(const TreeSelector& selector) {
  Database& database = Connection(selector.ConnectionString());
  std::vector<SelectorRecord> records =
      ReadRecords(database, SqlText("select ID,Name from ") + SqlName(selector.Table()));
  SortByName(records);
  FindParents(records, ReadAncestors(database, selector));
  MarkOffered(records, selector);
  return records;
}

std::vector<SelectorRecord> SelectorRecords::People(const PersonSelector& selector) {
  return ReadRecords(Connection(selector.ConnectionString()),
                     SqlText("select ID,FullName from tblUser order by FullName"));
}

std::string SelectorRecords::NameOf(const TreeSelector& selector) {
  if (selector.NothingSelected()) return {};
  const Recordset found = Connection(selector.ConnectionString())
                              .Open(SqlText("select Name from ") + SqlName(selector.Table()) +
                                    " where ID=" + selector.SelectedID());
  return found.AtEnd() ? std::string() : found.Field(0).Text();
}

std::string SelectorRecords::NameOf(const PersonSelector& selector) {
  if (selector.NothingSelected()) return {};
  const Recordset found =
      Connection(selector.ConnectionString())
          .Open(SqlText("select FullName from tblUser where ID=") + selector.SelectedID());
  return found.AtEnd() ? std::string() : found.Field(0).Text();
}

Database& SelectorRecords::Connection(const std::string& connectionText) {
  std::unique_ptr<Database>& connection = connections_[connectionText];
  if (!connection) connection = databases_.Connect(connectionText);
  return *connection;
}

}  // namespace koru
