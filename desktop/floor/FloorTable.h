#pragma once

#include <QStringList>
#include <QTableWidget>
#include <vector>

namespace koru {

/// A table of plain texts that cannot be edited, whose rows are replaced as a whole.
class FloorTable : public QTableWidget {
  Q_OBJECT

 public:
  /// `stretched`: the column that takes the remaining width.
  FloorTable(const QStringList& titles, int stretched, QWidget* parent);

  /// Shows these rows; cells whose text is the same are left alone. The selection stays at the number of
  /// its row, whatever that row shows then: see Choose.
  void ShowRows(const std::vector<QStringList>& rows);
  /// The text of the selected row in that column; empty when none is selected.
  [[nodiscard]] QString Chosen(int col) const;
  /// Selects the first row with that text in the column, unless the selected one has it; clears the selection
  /// when there is no such row.
  void Choose(int col, const QString& text);
};

}  // namespace koru
