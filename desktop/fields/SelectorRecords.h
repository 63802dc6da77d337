#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Selector.h"
#include "platform/sql/Database.h"

namespace koru {

/// One record that can be selected.
struct SelectorRecord {
  static constexpr int kNoParent = -1;

  std::int32_t id = 0;
  std::string name;
  int parent = kNoParent;  ///< the index of the parent in the same list; kNoParent at the top of a tree
  bool offered = true;     ///< false: shown for the records under it alone
};

/// Reads the records of selectors over their own connection texts. A connection is opened on first use and
/// kept. Every operation throws DatabaseError.
class SelectorRecords {
 public:
  explicit SelectorRecords(DatabaseConnector& databases) : databases_(databases) {}

  /// All nodes of the tree in Persian alphabetical order. The parent of a node is its ancestor with the most
  /// ancestors. Those that the selector does not offer (TreeSelector::Offers) are marked.
  [[nodiscard]] std::vector<SelectorRecord> Tree(const TreeSelector& selector);
  /// All people, ordered by name.
  [[nodiscard]] std::vector<SelectorRecord> People(const PersonSelector& selector);

  /// The name of the selected record; empty if nothing is selected or no record has the key.
  [[nodiscard]] std::string NameOf(const TreeSelector& selector);
  [[nodiscard]] std::string NameOf(const PersonSelector& selector);

 private:
  Database& Connection(const std::string& connectionText);

  DatabaseConnector& databases_;
  std::map<std::string, std::unique_ptr<Database>> connections_;
};

}  // namespace koru
