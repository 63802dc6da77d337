#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/CaptionedControl.h"
#include "platform/controls/Form.h"

namespace koru {

class OptionButton;

/// A group of options; at most one is chosen.
class OptionGroup {
 public:
  OptionGroup() = default;
  OptionGroup(const OptionGroup&) = delete;
  OptionGroup& operator=(const OptionGroup&) = delete;
  ~OptionGroup() = default;

 private:
  friend class OptionButton;
  std::vector<OptionButton*> options_;
};

/// One option of a group. Choosing it clears the others; only choosing another option clears it.
class OptionButton : public CaptionedControl {
 public:
  /// `group` must outlive the option.
  OptionButton(Form& form, std::string name, OptionGroup& group)
      : CaptionedControl(form, std::move(name)), group_(group) {
    group_.options_.push_back(this);
  }

  [[nodiscard]] bool Chosen() const { return chosen_; }
  void Choose() {
    for (OptionButton* option : group_.options_) option->Set(option == this);
  }

  bool UserChoose() {
    if (!Reachable()) return false;
    RunEvent([this] {
      Parent().SetFocus(*this);
      if (chosen_) return;
      Choose();
      Click.Raise();
    });
    return true;
  }

  Event<> Click;

 private:
  void Set(bool chosen) {
    if (chosen_ == chosen) return;
    chosen_ = chosen;
    StateChanged.Raise();
  }

  OptionGroup& group_;
  bool chosen_ = false;
};

}  // namespace koru
