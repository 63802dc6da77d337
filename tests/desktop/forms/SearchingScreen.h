#pragma once

#include "desktop/forms/DesktopScreen.h"
#include "search/frmGoodSearch.h"

namespace koru::test {

/// A screen on which the goods search finds all goods at once.
class SearchingScreen : public DesktopScreen {
 public:
  void Show(Form& form, bool modal) override {
    auto* const goods = dynamic_cast<frmGoodSearch*>(&form);
    if (goods == nullptr) {
      DesktopScreen::Show(form, modal);
    } else {
      goods->gmpInventory.UserSelect(Selector::kNothing);
      goods->cmdSearch.UserClick();
      goods->Hide();
    }
  }
};

}  // namespace koru::test
