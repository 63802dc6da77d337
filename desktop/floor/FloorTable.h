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

  /// Shows these rows; cells whose text is the same are left alone, and so is the current row.
  void ShowRows(const std::vector<QStringList>& rows);
  /// The selected row; -1 if none is.
  [[nodiscard]] int ChosenRow() const;
};

}  // namespace koru
