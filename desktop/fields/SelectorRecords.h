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
  int parent =
      kNoParent;  ///< the place of the record above it in the same list; kNoParent at the top of a tree
};

/// Reads the records that a selector offers, over the selector's own connection text. A connection is opened
/// when it is first needed and kept. Every operation throws DatabaseError.
class SelectorRecords {
 public:
  explicit SelectorRecords(DatabaseConnector& databases) : databases_(databases) {}

  /// All nodes of the tree, in the order of Persian lists. The node directly above another is the one of its
  /// ancestors that has the most ancestors itself.
  [[nodiscard]] std::vector<SelectorRecord> Tree(const TreeSelector& selector);
  /// All people, by name.
  [[nodiscard]] std::vector<SelectorRecord> People(const PersonSelector& selector);

  /// The name of the selected record; empty when nothing is selected or nobody has that key.
  [[nodiscard]] std::string NameOf(const TreeSelector& selector);
  [[nodiscard]] std::string NameOf(const PersonSelector& selector);

 private:
  Database& Connection(const std::string& connectionText);

  DatabaseConnector& databases_;
  std::map<std::string, std::unique_ptr<Database>> connections_;
};

}  // namespace koru
