#include "desktop/forms/EntryCommands.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>

#include "counting/controls/InvCountingControls.h"
#include "desktop/forms/FormBinding.h"

// The actions and shortcuts are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

QAction& AddEntryCommand(QMenu& menu, QWidget& window, FormBinding& binding, MenuItem& item) {
  auto* const action = new QAction(&window);
  menu.addAction(action);
  window.addAction(action);  // its key works while the menu is closed
  binding.Bind(item, *action, BlockedBy::Figures);
  return *action;
}

/// Ctrl+Y is not on all systems a key of text fields. Returns false if no text can be typed where the
/// keyboard is.
bool RedoText() {
  QWidget* const focus = QApplication::focusWidget();
  auto* const line = qobject_cast<QLineEdit*>(focus);
  if (line != nullptr && !line->isReadOnly()) {
    line->redo();
    return true;
  }
  auto* const text = qobject_cast<QPlainTextEdit*>(focus);
  if (text == nullptr || text->isReadOnly()) return false;
  text->redo();
  return true;
}

}  // namespace

void AddEntryCommands(QMenu& menu, QWidget& window, FormBinding& binding, InvCountingControls& controls) {
  AddEntryCommand(menu, window, binding, controls.mnuUndo).setShortcut(Qt::CTRL | Qt::Key_Z);
  QAction& redo = AddEntryCommand(menu, window, binding, controls.mnuRedo);
  redo.setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
  QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_Y, &window), &QShortcut::activated, &redo, [&redo] {
    if (!RedoText()) redo.trigger();
  });
  AddEntryCommand(menu, window, binding, controls.mnuAcceptEqual);
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
