#pragma once

#include "platform/controls/Control.h"

namespace koru {

enum class MenuPlace {
  Cursor,     ///< at the mouse cursor
  FormCentre  ///< in the middle of the form
};

/// A menu of a form, hidden until it pops up; its entries are the form's menu items.
class PopupMenu : public Control {
 public:
  using Control::Control;

  void PopUp(MenuPlace place) { PoppedUp.Raise(place); }

  Event<MenuPlace> PoppedUp;
};

}  // namespace koru
