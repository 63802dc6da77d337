#pragma once

class QMenu;
class QWidget;

namespace koru {

class FormBinding;
struct InvCountingControls;

/// Adds the commands for the figures being entered to the menu of a counting's window, with their keys: undo
/// (Ctrl+Z), redo (Ctrl+Y, Ctrl+Shift+Z), and accepting the counts that agree. In a field or cell editor,
/// these keys are the editor's own.
void AddEntryCommands(QMenu& menu, QWidget& window, FormBinding& binding, InvCountingControls& controls);

}  // namespace koru
