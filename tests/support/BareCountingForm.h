#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "counting/controls/InvCountingControls.h"

namespace koru::test {

/// The counting form's controls without its commands, for tests of single operations.
class BareCountingForm : public Form, public InvCountingControls {
 public:
  explicit BareCountingForm(Screen& screen)
      : Form(screen, "frmInvCounting"), InvCountingControls(static_cast<Form&>(*this)) {
    pgbStatus.SetVisible(false);
  }

  [[nodiscard]] std::string Cell(int row, int col) const {
    return std::string(flexDetail.TextMatrix(row, col));
  }
  void Set(int row, int col, std::string_view text) { flexDetail.SetTextMatrix(row, col, text); }
  /// The cells of a row.
  [[nodiscard]] std::vector<std::string> Row(int row) const {
    std::vector<std::string> cells;
    for (int col = 0; col < flexDetail.Cols(); ++col) cells.push_back(Cell(row, col));
    return cells;
  }
  /// The cells of a column, without its title.
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> cells;
    for (int row = 1; row < flexDetail.Rows(); ++row) cells.push_back(Cell(row, col));
    return cells;
  }
};

}  // namespace koru::test
