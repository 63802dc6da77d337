#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include "desktop/grid/GridView.h"
#include "tests/desktop/WindowTools.h"

namespace koru::test {

/// Three goods with a count (column 2) and a rate (column 3) to fill in. A count below zero is refused.
class GridViewTest : public testing::Test {
 protected:
  GridViewTest() {
    grid.SetCols(4);
    grid.SetFormatString("رديف|^نام              |^شمارش    |^نرخ       ");
    grid.SetEditMask("0011");
    grid.ValidateEdit.Always([this] { grid.SetEditAccepted(!grid.EditText().starts_with("-")); });
    for (const char* name : {"پيچ", "مهره", "واشر"}) {
      grid.AddItem(std::to_string(grid.Rows()));
      grid.SetTextMatrix(grid.Rows() - 1, 1, name);
    }
    // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
    view = new GridView(&window);
    view->SetColumnStyle(2, {.number = true, .grouped = false, .sign = {}, .color = {}});
    view->SetColumnStyle(3, {.number = true, .grouped = false, .sign = {}, .color = {}});
    view->SetStretchColumn(1);
    other = new QPushButton(&window);
    auto* const layout = new QVBoxLayout(&window);
    // NOLINTEND(cppcoreguidelines-owning-memory)
    layout->addWidget(view);
    layout->addWidget(other);
    window.resize(600, 300);
    binding.Bind(grid, *view);
  }

  void Start() {
    Open(window);
    view->setFocus();
    QApplication::processEvents();
  }
  [[nodiscard]] std::string Cell(int row, int col) const { return std::string(grid.TextMatrix(row, col)); }
  [[nodiscard]] QLineEdit* Editor() const { return view->findChild<QLineEdit*>("cellEditor"); }
  [[nodiscard]] std::pair<int, int> Current() const { return {grid.Row(), grid.Col()}; }

  NoScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  QWidget window;
  GridView* view = nullptr;
  QPushButton* other = nullptr;
  FormBinding binding{form};
};

}  // namespace koru::test
