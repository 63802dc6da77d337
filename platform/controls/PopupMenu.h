#pragma once

#include "platform/controls/Control.h"

namespace koru {

enum class MenuPlace {
  Cursor,     ///< where the person has just clicked
  FormCentre  ///< in the middle of the form
};

/// A menu of a form that is not seen until it pops up; its entries are the form's menu items.
class PopupMenu : public Control {
 public:
  using Control::Control;

  void PopUp(MenuPlace place) { PoppedUp.Raise(place); }

  Event<MenuPlace> PoppedUp;
};

}  // namespace koru
