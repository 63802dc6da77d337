#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lines/CountingLines.h"
#include "lines/LineColumns.h"
#include "lines/LineEditing.h"
#include "lines/SystemQuantity.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/ports/Components.h"
#include "services/Messages.h"
#include "services/SharedState.h"

namespace koru {

/// The part of a counting form that its lines need, open for editing, with a grid that is set up and has no
/// lines.
class LineForm : public Form {
 public:
  LineForm(Screen& screen, const ComponentRegistry& components, DatabaseConnector& databases,
           const std::string& connectionText)
      : Form(screen, "frmInvCounting"), data(databases), messages(components) {
    data.SetConnectionString(connectionText);
    lines.SetUp();
  }

  /// Appends a line; answers its row.
  int AddLine(std::string_view barcode) {
    flexDetail.AddItem({});
    const int row = flexDetail.Rows() - 1;
    flexDetail.SetTextMatrix(row, LineColumn::Barcode, barcode);
    return row;
  }
  void Set(int row, int col, std::string_view text) { flexDetail.SetTextMatrix(row, col, text); }
  [[nodiscard]] std::string Cell(int row, int col) const {
    return std::string(flexDetail.TextMatrix(row, col));
  }
  [[nodiscard]] std::vector<std::string> Row(int row) const {
    std::vector<std::string> cells;
    cells.reserve(kLineColumns);
    for (int col = 0; col < flexDetail.Cols(); ++col) cells.push_back(Cell(row, col));
    return cells;
  }
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(flexDetail.Rows()));
    for (int row = 1; row < flexDetail.Rows(); ++row) cells.push_back(Cell(row, col));
    return cells;
  }

  Grid flexDetail{*this, "flexDetail"};
  TextBox txtTotalBelowValue{*this, "txtTotalBelowValue"};
  TextBox txtTotalAboveValue{*this, "txtTotalAboveValue"};
  TextBox txtTotalValue{*this, "txtTotalValue"};
  TreeSelector gmpInventory{*this, "gmpInventory"};
  DateBox gdpFromDate{*this, "gdpFromDate"};
  DateBox gdpToDate{*this, "gdpToDate"};
  ProgressBar pgbStatus{*this, "pgbStatus"};
  dteInvCounting data;
  Messages messages;
  DocumentMode DocMode = DocumentMode::Editing;
  CountingLines lines{flexDetail, txtTotalBelowValue, txtTotalAboveValue, txtTotalValue, data};
  LineEditing editing{flexDetail, lines, messages, DocMode};
  SystemQuantity quantity{flexDetail,  gmpInventory, gdpFromDate, gdpToDate, pgbStatus,
                          TheScreen(), data,         editing,     lines};
};

}  // namespace koru
