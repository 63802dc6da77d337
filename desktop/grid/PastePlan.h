#pragma once

#include <QPersistentModelIndex>
#include <QStringList>
#include <vector>

namespace koru {

class GridView;

/// The lines and columns of the texts of a pasted block.
struct PastePlan {
  enum class Match {
    Line,       ///< `line` takes the texts
    BeyondEnd,  ///< the block is longer than the grid
    Unknown,    ///< no line, or no single one, has the barcode
    Repeated    ///< an earlier row of the block has the same line
  };
  struct Row {
    QPersistentModelIndex line;
    Match match = Match::Line;
    QStringList texts;
  };

  static constexpr int kNone = -1;       ///< no figure, such as a name
  static constexpr int kBeyondEnd = -2;  ///< after the last column

  std::vector<int> columns;  ///< the column of the grid of each text of a row, kNone or kBeyondEnd
  std::vector<Row> rows;
};

/// Decides for each text of `block`, which is pasted into the cell `from`, which line and column it belongs
/// to.
///
/// Columns. Rows with a text for every column of the grid, as the Excel button writes them, have their own
/// columns, and so have lines that were copied here, which have no row numbers. Other texts have the columns
/// from `from` on, in the order in which they are shown, hidden columns included. If a column of the block
/// has barcodes of lines (of at least 8 characters), that column has the barcodes wherever `from` is. A
/// rectangle that was copied from this grid, which has a column of codes, names or units in its place beside
/// the barcodes, has its own columns. Of any other block, the columns with figures are those from `from` on,
/// or from the first column that can be edited; codes and names are left out.
///
/// Lines. Without barcodes, the rows of the block are the lines from `from` on. With them, the barcode
/// decides and the position never does; a row without a barcode belongs to the line without one whose texts
/// (code, name, unit) are those of the row. A row of column titles is left out.
[[nodiscard]] PastePlan PlanPaste(const GridView& view, const QModelIndex& from,
                                  const std::vector<QStringList>& block);

}  // namespace koru
