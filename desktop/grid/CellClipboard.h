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
  explicit CellClipboard(const GridView& view) : view_(view) {}

  /// Copies the text of the current cell; without one, the clipboard keeps its contents.
  void Copy() const;
  /// Pastes into the cell `from` and the cells below and after it, as far as they exist. Cells that cannot be
  /// edited are skipped, and so are hidden columns. Stops at a text that the form refuses.
  void Paste(const QModelIndex& from) const;
  /// Whether the clipboard contains more than one text.
  [[nodiscard]] static bool HoldsSeveralTexts();

 private:
  [[nodiscard]] bool PasteLine(const QPersistentModelIndex& from, const QStringList& texts) const;

  const GridView& view_;
};

}  // namespace koru
