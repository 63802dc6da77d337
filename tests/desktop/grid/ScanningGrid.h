#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <string>
#include <utility>
#include <vector>

#include "desktop/grid/GridView.h"
#include "tests/desktop/WindowTools.h"

namespace koru::test {

/// Goods with a barcode (column 1), a name, two counts (3 and 4), a book stock that is not typed and a rate.
/// A count below zero is refused. The current cell is the barcode of the second line.
struct ScanningGrid {
  enum : int { Barcode = 1, Name, First, Second, Stock, Rate };

  ScanningGrid() {
    grid.SetCols(7);
    grid.SetFormatString("رديف|^باركد     |^نام     |^شمارش اول|^شمارش دوم|^دفتري|^نرخ   ");
    grid.SetEditMask("0001101");
    grid.ValidateEdit.Always([this] { grid.SetEditAccepted(!grid.EditText().starts_with("-")); });
    for (const auto& [barcode, name] : std::vector<std::pair<const char*, const char*>>{{"62610", "برنج"},
                                                                                        {"777", "پيچ"},
                                                                                        {"6261", "روغن"},
                                                                                        {"6262", "يخ"},
                                                                                        {"11", "كتاب"},
                                                                                        {"1112", "مهره"}}) {
      grid.AddItem(std::to_string(grid.Rows()));
      grid.SetTextMatrix(grid.Rows() - 1, Barcode, barcode);
      grid.SetTextMatrix(grid.Rows() - 1, Name, name);
    }
    // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
    view = new GridView(&window);
    other = new QPushButton(&window);
    auto* const layout = new QVBoxLayout(&window);
    // NOLINTEND(cppcoreguidelines-owning-memory)
    for (const int col : {First, Second, Rate}) {
      ColumnStyle look;
      look.number = true;
      view->SetColumnStyle(col, look);
    }
    view->SetScanColumn(Barcode);
    layout->addWidget(view);
    layout->addWidget(other);
    window.resize(700, 300);
    binding.Bind(grid, *view);
    binding.Bind(command, *other);
    Open(window);
    grid.SetCurrent(2, Barcode);
    view->setFocus();
    QApplication::processEvents();
  }
  ScanningGrid(const ScanningGrid&) = delete;
  ScanningGrid& operator=(const ScanningGrid&) = delete;
  ~ScanningGrid() { QToolTip::hideText(); }

  void Scan(const QString& text) {
    Type(text);
    Press(Qt::Key_Return);
  }
  void Pause() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
  [[nodiscard]] std::string Cell(int row, int col) const { return std::string(grid.TextMatrix(row, col)); }
  [[nodiscard]] std::pair<int, int> Current() const {
    EXPECT_EQ(view->currentIndex(), view->model()->index(grid.Row() - 1, grid.Col()));
    return {grid.Row(), grid.Col()};
  }
  [[nodiscard]] static bool HintShows(const QString& text) {
    return QToolTip::isVisible() && QToolTip::text().contains(text);
  }
  [[nodiscard]] static bool HintIsHidden() {
    return QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000);
  }
  void Click(int row, int col) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row - 1, col)).center());
    QApplication::processEvents();
  }

  NoScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  Button command{form, "cmd"};
  QWidget window;
  GridView* view = nullptr;
  QPushButton* other = nullptr;
  FormBinding binding{form};
};

class ScanningTest : public testing::Test, protected ScanningGrid {};

}  // namespace koru::test
