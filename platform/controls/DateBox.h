#pragma once

#include <optional>
#include <string>

#include "platform/controls/Form.h"
#include "platform/text/Date.h"

namespace koru {

/// A date box: holds a date or none and shows it in the Solar Hijri calendar. A date that this calendar does
/// not have (HasSolarDate) is none.
class DateBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] bool IsEmpty() const { return !value_; }
  [[nodiscard]] std::optional<Date> Value() const { return value_; }
  /// The date as `yyyy/mm/dd` in the Solar Hijri calendar; empty if the box is.
  [[nodiscard]] std::string PersianText() const { return value_ ? SolarText(*value_) : std::string(); }

  void SetValue(std::optional<Date> value) {
    if (value && !HasSolarDate(*value)) value.reset();
    if (value_ == value) return;
    value_ = value;
    StateChanged.Raise();
  }
  void Clear() { SetValue(std::nullopt); }

  /// The user sets or clears the date; raises ValueChanged if the value changes.
  bool UserSet(std::optional<Date> value) {
    if (!Reachable()) return false;
    RunEvent([&] {
      Parent().SetFocus(*this);
      if (value_ == value) return;
      SetValue(value);
      ValueChanged.Raise();
    });
    return true;
  }

  Event<> ValueChanged;

 private:
  std::optional<Date> value_;
};

}  // namespace koru
