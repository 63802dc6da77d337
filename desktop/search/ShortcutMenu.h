#pragma once

#include <QMenu>

namespace koru {

/// A menu whose captions are a shortcut and a word, separated by blanks ("F1      راهنمايي"). Words are
/// aligned on the right and shortcuts on the left, independent of the width of the blanks.
class ShortcutMenu : public QMenu {
  Q_OBJECT

 public:
  using QMenu::QMenu;

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

}  // namespace koru
