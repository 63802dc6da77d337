#pragma once

#include <QModelIndex>
#include <QRect>
#include <QString>

#include "desktop/grid/PastePlan.h"

namespace koru {

class GridView;

/// Copying and pasting the cells of a GridView, as tab-separated texts like those of spreadsheets
/// (TabbedText).
class CellClipboard {
 public:
  explicit CellClipboard(GridView& view) : view_(view) {}

  /// Copies the current cell, or the selected rectangle in the order in which its columns are shown. A hidden
  /// column between them is copied too, as it is a column of the workbook. Without a current cell, the
  /// clipboard keeps its contents.
  void Copy() const;
  /// Pastes into the current cell, or the first cell of the selected rectangle; of selected lines, into the
  /// current column of the first one.
  void Paste() const;
  /// Pastes a block from the cell `from` on, or where its barcodes belong (PlanPaste). Cells that cannot be
  /// edited keep their texts. What is left out is counted and reported: figures beyond the last row or
  /// column, texts that are no numbers, figures that the form refuses, rows for a line that an earlier row
  /// has filled, and rows with a barcode that no line has. The current cell is `from` afterwards. The whole
  /// block is one BatchEdit.
  void Paste(const QModelIndex& from) const;
  /// Whether the clipboard contains more than one text.
  [[nodiscard]] static bool HoldsSeveralTexts();

 private:
  struct PastedCounts {
    int cells = 0;  ///< all texts of the block
    int stored = 0;
    int unfit = 0;
    int unknown = 0;  ///< rows
  };
  [[nodiscard]] QRect SelectedPlaces() const;
  void PasteRow(const PastePlan& plan, const PastePlan::Row& row, PastedCounts& counts) const;
  [[nodiscard]] int FiguresIn(const PastePlan& plan, const PastePlan::Row& row) const;
  [[nodiscard]] bool PasteCell(const QModelIndex& cell, const QString& text) const;
  void Report(const PastedCounts& counts) const;

  GridView& view_;
};

}  // namespace koru
