#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/text/Text.h"

namespace koru {

/// A text box. While it is locked, the user can read and copy its text but not type.
class TextBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    StateChanged.Raise();
  }

  [[nodiscard]] bool Locked() const { return locked_; }
  void SetLocked(bool locked) {
    if (locked_ == locked) return;
    locked_ = locked;
    StateChanged.Raise();
  }

  /// The maximum length of typed text, in UTF-16 units; 0: unlimited. Text that the program sets is not cut.
  [[nodiscard]] std::size_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::size_t units) { maxLength_ = units; }

  /// A text that the program stores with the box and never shows.
  [[nodiscard]] const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  /// The selected part, in UTF-16 units from the start of the text.
  [[nodiscard]] std::size_t SelStart() const { return selStart_; }
  [[nodiscard]] std::size_t SelLength() const { return selLength_; }
  void Select(std::size_t start, std::size_t length) {
    selStart_ = start;
    selLength_ = length;
    SelectionChanged.Raise();
  }

  /// The user changes the content of the box to `text`; refused while the box is locked, disabled or hidden.
  bool UserType(std::string text) {
    if (!Reachable() || locked_) return false;
    if (maxLength_ != 0) text.resize(Utf16Prefix(text, maxLength_).size());
    RunEvent([&] {
      Parent().SetFocus(*this);
      SetText(std::move(text));
      Change.Raise();
    });
    return true;
  }

  /// The user has typed.
  Event<> Change;
  /// Select was called, possibly with the same range again: a user may have moved the cursor since.
  Event<> SelectionChanged;

 private:
  std::string text_;
  std::string tag_;
  std::size_t maxLength_ = 0;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
  bool locked_ = false;
};

}  // namespace koru
