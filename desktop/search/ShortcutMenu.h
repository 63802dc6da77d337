#pragma once

#include <QMenu>

namespace koru {

/// A menu whose captions are a shortcut and a word with blanks between them ("F1      راهنمايي"): the words
/// stand in line on the right and the shortcuts on the left, whatever the font makes of the blanks.
class ShortcutMenu : public QMenu {
  Q_OBJECT

 public:
  using QMenu::QMenu;

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

}  // namespace koru
