#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Form.h"

namespace koru {

/// A list with at most one chosen entry. Each entry carries an integer that is not shown.
class ComboBox : public Control {
 public:
  struct Item {
    std::string text;
    std::int32_t itemData = 0;
  };

  using Control::Control;

  [[nodiscard]] const std::vector<Item>& Items() const { return items_; }
  void AddItem(std::string text, std::int32_t itemData) {
    items_.push_back({std::move(text), itemData});
    StateChanged.Raise();
  }
  /// Removes all entries, and with them the choice.
  void Clear() {
    items_.clear();
    listIndex_ = -1;
    StateChanged.Raise();
  }

  /// The index of the chosen entry, from 0; -1 if none is chosen.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// An index outside the list chooses none.
  void SetListIndex(int index) {
    const int valid = index >= 0 && index < static_cast<int>(items_.size()) ? index : -1;
    if (listIndex_ == valid) return;
    listIndex_ = valid;
    StateChanged.Raise();
  }
  /// The chosen entry; nullptr if none is chosen.
  [[nodiscard]] const Item* Chosen() const {
    return listIndex_ < 0 ? nullptr : &items_[static_cast<std::size_t>(listIndex_)];
  }

  [[nodiscard]] bool Locked() const { return locked_; }
  void SetLocked(bool locked) {
    if (locked_ == locked) return;
    locked_ = locked;
    StateChanged.Raise();
  }

  /// The user chooses an entry (-1: none); refused while the list is locked, disabled or hidden.
  bool UserChoose(int index) {
    if (!Reachable() || locked_) return false;
    RunEvent([&] {
      Parent().SetFocus(*this);
      if (index == listIndex_) return;
      SetListIndex(index);
      Click.Raise();
    });
    return true;
  }

  Event<> Click;

 private:
  std::vector<Item> items_;
  int listIndex_ = -1;
  bool locked_ = false;
};

}  // namespace koru
