#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/text/Text.h"

namespace koru {

/// A text box. Locked: the person reads and copies, and cannot type.
class TextBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    Changed.Raise();
  }

  [[nodiscard]] bool Locked() const { return locked_; }
  void SetLocked(bool locked) {
    if (locked_ == locked) return;
    locked_ = locked;
    Changed.Raise();
  }

  /// So many UTF-16 units of what a person types are taken; 0: all. What the program sets is not cut.
  [[nodiscard]] std::size_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::size_t units) { maxLength_ = units; }

  /// A text that the program keeps with the box and nobody sees.
  [[nodiscard]] const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  /// The selected part, in UTF-16 units from the start of the text.
  [[nodiscard]] std::size_t SelStart() const { return selStart_; }
  [[nodiscard]] std::size_t SelLength() const { return selLength_; }
  void Select(std::size_t start, std::size_t length) {
    selStart_ = start;
    selLength_ = length;
    Changed.Raise();
  }

  /// The person makes `text` the content of the box; refused while it is locked or not reachable.
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

  /// The person has typed.
  Event<> Change;

 private:
  std::string text_;
  std::string tag_;
  std::size_t maxLength_ = 0;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
  bool locked_ = false;
};

}  // namespace koru
