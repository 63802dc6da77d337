#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "siblings/documents/StockDocument.h"

namespace koru {

/// The lines of a receipt or dispatch as a Qt model.
class DocumentLinesModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { RowNumber, GoodCode, GoodName, Unit, Quantity, UnitValue, Amount, ColumnCount };

  DocumentLinesModel(const std::vector<DocumentLine>& lines, QObject* parent)
      : QAbstractTableModel(parent), lines_(lines) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const std::vector<DocumentLine>& lines_;
};

}  // namespace koru
