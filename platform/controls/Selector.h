#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/controls/Form.h"

namespace koru {

/// The common part of tree selectors and user selectors: at most one record is selected, by its key.
/// A window reads the records to choose from over the selector's own connection text.
class Selector : public Control {
 public:
  static constexpr std::int32_t kNothing = -1;

  using Control::Control;

  [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }
  void SetConnectionString(std::string connectionString) {
    if (connectionString_ == connectionString) return;
    connectionString_ = std::move(connectionString);
    StateChanged.Raise();
  }

  /// The key of the selected record; kNothing if none is selected.
  [[nodiscard]] std::int32_t SelectedID() const { return selectedID_; }
  [[nodiscard]] bool NothingSelected() const { return selectedID_ == kNothing; }
  void Select(std::int32_t id) {
    if (selectedID_ == id) return;
    selectedID_ = id;
    StateChanged.Raise();
  }
  void ClearSelection() { Select(kNothing); }

  /// The user selects a record, or none (kNothing); raises SelectionChanged if the selection changes.
  bool UserSelect(std::int32_t id) {
    if (!Reachable()) return false;
    RunEvent([&] {
      Parent().SetFocus(*this);
      if (selectedID_ == id) return;
      Select(id);
      SelectionChanged.Raise();
    });
    return true;
  }

  /// The user has selected another record. A selection by the program raises StateChanged alone.
  Event<> SelectionChanged;

 private:
  std::string connectionString_;
  std::int32_t selectedID_ = kNothing;
};

/// Selects a node of a tree that the suite stores as a master table and a closure table (one row for each
/// pair of a node and a descendant): stores, goods groups, places, units.
class TreeSelector : public Selector {
 public:
  using Selector::Selector;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  [[nodiscard]] const std::string& Table() const { return table_; }
  [[nodiscard]] const std::string& ParentTable() const { return parentTable_; }
  void SetCaption(std::string caption) {
    caption_ = std::move(caption);
    StateChanged.Raise();
  }
  void SetTables(std::string table, std::string parentTable) {
    table_ = std::move(table);
    parentTable_ = std::move(parentTable);
    StateChanged.Raise();
  }
  /// Restricts what the user is offered to records without any under them, and to the record `except`
  /// (kNothing: no exception).
  void OfferOnlyLeaves(std::int32_t except) {
    onlyLeaves_ = true;
    exceptedLeaf_ = except;
    StateChanged.Raise();
  }
  /// Whether the user is offered the record; `isLeaf`: none is under it.
  [[nodiscard]] bool Offers(std::int32_t id, bool isLeaf) const {
    return !onlyLeaves_ || isLeaf || id == exceptedLeaf_;
  }

 private:
  bool onlyLeaves_ = false;
  std::int32_t exceptedLeaf_ = kNothing;
  std::string caption_;
  std::string table_;
  std::string parentTable_;
};

/// Selects one of the suite's people (tblUser).
class PersonSelector : public Selector {
 public:
  using Selector::Selector;
};

}  // namespace koru
