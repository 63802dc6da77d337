#include "scenario/desktop/WidgetState.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "scenario/Scenario.h"

namespace koru {
namespace {

std::string Shows(const std::string& shown, const std::string& expected) {
  if (shown == expected) return {};
  return "the window shows " + QuotedForScenario(shown) + " for " + QuotedForScenario(expected);
}

std::string TextDifference(const TextBox& box, const QWidget& widget) {
  const auto* const line = qobject_cast<const QLineEdit*>(&widget);
  const auto* const lines = qobject_cast<const QPlainTextEdit*>(&widget);
  if (line == nullptr && lines == nullptr) return "its widget is no text box";
  const bool readOnly = line == nullptr ? lines->isReadOnly() : line->isReadOnly();
  if (readOnly != box.Locked()) return readOnly ? "the window does not let type" : "the window lets type";
  return Shows(FromQt(line == nullptr ? lines->toPlainText() : line->text()), box.Text());
}

std::string DateDifference(const DateBox& box, const QWidget& widget) {
  const auto* const edit = widget.findChild<const QLineEdit*>();
  if (edit == nullptr) return "its widget is no date box";
  return Shows(FromQt(edit->text()), box.IsEmpty() ? "//" : box.PersianText());
}

std::string SelectorDifference(const Selector& selector, const QWidget& widget) {
  const auto* const edit = widget.findChild<const QLineEdit*>();
  if (edit == nullptr) return "its widget is no selector";
  if (edit->text().isEmpty() == selector.NothingSelected()) return {};
  return selector.NothingSelected() ? Shows(FromQt(edit->text()), "") : "the window shows nothing selected";
}

std::string GridDifference(const Grid& grid, const QWidget& widget) {
  constexpr int kMaxRows = 200;
  const auto* const view = qobject_cast<const GridView*>(&widget);
  if (view == nullptr) return "its widget is no grid";
  const GridModel& model = view->Rows();
  if (!model.IsFiltered() && model.rowCount() != grid.Rows() - 1) {
    return "the window shows " + std::to_string(model.rowCount()) + " rows for " +
           std::to_string(grid.Rows() - 1);
  }
  for (int at = 0; at < std::min(model.rowCount(), kMaxRows); ++at) {
    const int row = model.GridRowOf(model.index(at, 0));
    for (int col = 0; col < grid.Cols(); ++col) {
      const std::string shown = FromQt(model.index(at, col).data(Qt::EditRole).toString());
      if (view->isColumnHidden(col) && shown.empty()) continue;  // concealed from who counts
      const std::string difference = Shows(shown, std::string(grid.TextMatrix(row, col)));
      if (!difference.empty()) {
        return "in row " + std::to_string(row) + ", column " + std::to_string(col) + " " + difference;
      }
    }
  }
  return {};
}

std::string ContentDifference(const Control& control, const QWidget& widget) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return TextDifference(*box, widget);
  if (const auto* box = dynamic_cast<const DateBox*>(&control)) return DateDifference(*box, widget);
  if (const auto* selector = dynamic_cast<const Selector*>(&control))
    return SelectorDifference(*selector, widget);
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return GridDifference(*grid, widget);
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    const auto* const shown = qobject_cast<const QLabel*>(&widget);
    return shown == nullptr ? "its widget is no label" : Shows(FromQt(shown->text()), label->Caption());
  }
  if (const auto* list = dynamic_cast<const ComboBox*>(&control)) {
    const auto* const shown = qobject_cast<const QComboBox*>(&widget);
    const std::string text = list->Chosen() == nullptr ? std::string() : list->Chosen()->text;
    return shown == nullptr ? "its widget is no list" : Shows(FromQt(shown->currentText()), text);
  }
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  const auto* const check = dynamic_cast<const CheckBox*>(&control);
  const auto* const option = dynamic_cast<const OptionButton*>(&control);
  if (check == nullptr && option == nullptr) return {};
  const bool on = check == nullptr ? option->Chosen() : check->Checked();
  return button != nullptr && button->isChecked() == on ? "" : "the window does not show whether it is on";
}

std::string MenuDifference(const FormWindow& window, const MenuItem& item) {
  const auto* const action = window.findChild<const QAction*>(QString::fromStdString(item.Name()));
  if (action == nullptr) return "the window has no such menu item";
  return action->isEnabled() == item.Enabled() ? "" : "the window differs in whether it is enabled";
}

}  // namespace

std::string WidgetDifference(FormWindow& window, const Control& control) {
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) return MenuDifference(window, *item);
  const auto* const widget = window.findChild<const QWidget*>(QString::fromStdString(control.Name()));
  if (widget == nullptr) return "the window has no such widget";
  if (widget->isEnabledTo(&window) != control.Enabled()) {
    return control.Enabled() ? "the window shows it disabled" : "the window shows it enabled";
  }
  if (widget->isVisibleTo(&window) != control.Visible()) {
    return control.Visible() ? "the window does not show it" : "the window shows it";
  }
  return ContentDifference(control, *widget);
}

}  // namespace koru
