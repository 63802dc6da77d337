#include "tests/desktop/grid/KeyTable.h"

#include <QClipboard>
#include <utility>

namespace koru::test {
namespace {

struct TableKey {
  const char* name;
  Qt::Key key;
  Qt::KeyboardModifiers held = Qt::NoModifier;
  const char* clipboard = "3";
};

/// The keys that the grid handles, those that Qt handles in views and editors, a letter and a digit.
const TableKey kKeys[] = {
    {"Return", Qt::Key_Return},
    {"Enter", Qt::Key_Enter},
    {"Tab", Qt::Key_Tab},
    {"Backtab", Qt::Key_Backtab},
    {"Escape", Qt::Key_Escape},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"Ctrl+Home", Qt::Key_Home, Qt::ControlModifier},
    {"Ctrl+End", Qt::Key_End, Qt::ControlModifier},
    {"PageUp", Qt::Key_PageUp},
    {"PageDown", Qt::Key_PageDown},
    {"Delete", Qt::Key_Delete},
    {"Ctrl+Delete", Qt::Key_Delete, Qt::ControlModifier},
    {"Backspace", Qt::Key_Backspace},
    {"Insert", Qt::Key_Insert},
    {"F2", Qt::Key_F2},
    {"F5", Qt::Key_F5},
    {"x", Qt::Key_X},
    {"6", Qt::Key_6},
    {"Space", Qt::Key_Space},
    {"Ctrl+A", Qt::Key_A, Qt::ControlModifier},
    {"Ctrl+C", Qt::Key_C, Qt::ControlModifier},
    {"Ctrl+V", Qt::Key_V, Qt::ControlModifier},
    {"Ctrl+V lines", Qt::Key_V, Qt::ControlModifier, "3\n4\n"},
    {"Ctrl+Tab", Qt::Key_Tab, Qt::ControlModifier},
    {"Ctrl+Shift+Tab", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier},
};

const char* NameOf(ScanMode::State state) {
  switch (state) {
    case ScanMode::State::Idle:
      return "Idle";
    case ScanMode::State::Searching:
      return "Searching";
    case ScanMode::State::Found:
      return "Found";
    case ScanMode::State::NotFound:
      return "NotFound";
    case ScanMode::State::Dismissed:
      return "Dismissed";
    case ScanMode::State::Figure:
      return "Figure";
    case ScanMode::State::Ready:
      return "Ready";
  }
  return "";
}

const char* NameOf(CellEditing::State state) {
  switch (state) {
    case CellEditing::State::Closed:
      return "";
    case CellEditing::State::Typed:
      return " Typed";
    case CellEditing::State::Opened:
      return " Opened";
  }
  return "";
}

std::string EditorText(const GridView& view) {
  const auto* const editor = view.findChild<QLineEdit*>("cellEditor");
  if (editor == nullptr) return {};
  const std::string text = " '" + editor->text().toStdString() + "'";
  return editor->hasSelectedText() ? text + "[" + editor->selectedText().toStdString() + "]"
                                   : text + "@" + std::to_string(editor->cursorPosition());
}

std::map<std::pair<int, int>, std::string> TextsOf(const Grid& grid) {
  std::map<std::pair<int, int>, std::string> texts;
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) texts[{row, col}] = grid.TextMatrix(row, col);
  }
  return texts;
}

std::string ChangedTexts(const std::map<std::pair<int, int>, std::string>& before, const Grid& grid) {
  std::string changed;
  for (const auto& [cell, text] : TextsOf(grid)) {
    if (before.at(cell) == text) continue;
    changed += " (" + std::to_string(cell.first) + "," + std::to_string(cell.second) + ")=" + text;
  }
  return changed;
}

std::string FocusOf(const ScanningGrid& grid) {
  if (grid.other->hasFocus()) return " leaves";
  const QWidget* const focus = QApplication::focusWidget();
  return focus == grid.view || grid.view->isAncestorOf(focus) ? "" : " nofocus";
}

/// Enters the state and presses the key in it.
void PressIn(const TableState& state, ScanningGrid& grid, const TableKey& key) {
  if (!state.withinMove) return Press(key.key, key.held);
  bool pressed = false;
  auto move = grid.grid.RowChange.Subscribe([&] {
    if (std::exchange(pressed, true)) return;
    EXPECT_STREQ(NameOf(grid.view->Scanning().CurrentState()), state.name);
    Press(key.key, key.held);
  });
  state.enter(grid);
  EXPECT_TRUE(pressed) << state.name;
}

std::string EffectOf(const TableState& state, const TableKey& key) {
  ScanningGrid grid;
  if (!state.withinMove) state.enter(grid);
  QApplication::clipboard()->setText(key.clipboard);
  const auto before = TextsOf(grid.grid);
  const int rows = grid.grid.Rows();
  PressIn(state, grid, key);
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  std::string effect = NameOf(grid.view->Scanning().CurrentState());
  effect += NameOf(grid.view->Editing().CurrentState());
  effect += " " + std::to_string(grid.Current().first) + "," + std::to_string(grid.Current().second);
  effect += EditorText(*grid.view);
  effect += grid.grid.Rows() < rows ? " deletes" : ChangedTexts(before, grid.grid);
  const std::string copied = QApplication::clipboard()->text().toStdString();
  if (copied != key.clipboard) effect += " copies " + copied;
  return effect + FocusOf(grid);
}

}  // namespace

void ExpectKeys(const std::vector<TableState>& states, const KeyTable& expected) {
  EXPECT_EQ(expected.size(), std::size(kKeys));
  for (const TableKey& key : kKeys) {
    const std::vector<std::string>& effects = expected.at(key.name);
    ASSERT_EQ(effects.size(), states.size()) << key.name;
    for (std::size_t i = 0; i < states.size(); ++i) {
      EXPECT_EQ(EffectOf(states[i], key), effects[i]) << key.name << " in " << states[i].name;
    }
  }
}

}  // namespace koru::test
