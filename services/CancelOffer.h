#pragma once

#include "platform/controls/Button.h"

namespace koru {

/// Offers the user to cancel a command during the object's lifetime: shows `button` and notes that it was
/// pressed. A window handles the press when the command moves a progress bar (ProgressBar).
class CancelOffer {
 public:
  explicit CancelOffer(Button& button)
      : button_(button), pressed_(button.Click.Subscribe([this] { wanted_ = true; })) {
    button_.SetVisible(true);
  }
  CancelOffer(const CancelOffer&) = delete;
  CancelOffer& operator=(const CancelOffer&) = delete;
  ~CancelOffer() { button_.SetVisible(false); }

  /// Whether the user has cancelled.
  [[nodiscard]] bool Wanted() const { return wanted_; }

 private:
  Button& button_;
  bool wanted_ = false;
  Subscription pressed_;
};

}  // namespace koru
