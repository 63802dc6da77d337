#pragma once

#include <QModelIndex>
#include <QStringList>

class QPersistentModelIndex;

namespace koru {

class GridView;

/// Copying the current cell of a GridView, and pasting lines of tab-separated texts as spreadsheets copy
/// them.
class CellClipboard {
 public:
  explicit CellClipboard(GridView& view) : view_(view) {}

  /// Copies the text of the current cell; without one, the clipboard keeps its contents.
  void Copy() const;
  /// Pastes into the cell `from` and the cells below and after it, as far as they exist. Cells that cannot be
  /// edited keep their texts. Figures that do not fit are counted and reported: those beyond the last row or
  /// column, texts that are no numbers, figures that the form refuses, and those of a row whose barcode is
  /// not the line's. The current cell is `from` again afterwards.
  void Paste(const QModelIndex& from) const;
  /// Whether the clipboard contains more than one text.
  [[nodiscard]] static bool HoldsSeveralTexts();

 private:
  struct PastedCounts {
    int stored = 0;
    int unfit = 0;
  };
  void PasteLine(const QPersistentModelIndex& from, const QStringList& texts, PastedCounts& counts) const;
  [[nodiscard]] bool IsOfAnotherLine(int row, int firstCol, const QStringList& texts) const;
  [[nodiscard]] bool IsFigure(int row, int col, const QString& text) const;
  [[nodiscard]] bool PasteCell(const QModelIndex& cell, const QString& text) const;
  void Report(const PastedCounts& counts) const;

  GridView& view_;
};

}  // namespace koru
