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

QAction& AddEntryCommand(QMenu& menu, FormBinding& binding, MenuItem& item, const QString& keys = {}) {
  auto* const action = new QAction(&menu);
  menu.addAction(action);
  binding.Bind(item, *action, BlockedBy::Figures, keys);
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
  QAction& undo = AddEntryCommand(menu, binding, controls.mnuUndo, QStringLiteral("Ctrl+Z"));
  QAction& redo = AddEntryCommand(menu, binding, controls.mnuRedo, QStringLiteral("Ctrl+Y"));
  AddEntryCommand(menu, binding, controls.mnuAcceptEqual);
  const auto press = [&window](QKeyCombination key, QAction& action, bool (*takesIt)()) {
    QObject::connect(new QShortcut(key, &window), &QShortcut::activated, &action, [&action, takesIt] {
      if (takesIt == nullptr || !takesIt()) action.trigger();
    });
  };
  press(Qt::CTRL | Qt::Key_Z, undo, nullptr);
  press(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, redo, nullptr);
  press(Qt::CTRL | Qt::Key_Y, redo, &RedoText);
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
