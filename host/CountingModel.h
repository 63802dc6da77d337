#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <vector>

#include "host/CountingRows.h"
#include "platform/text/PersianWords.h"

namespace koru {

/// The columns of the host's list.
enum CountingColumn : int {
  State,
  FinalNumber,
  CountingKey,
  CountingManualCode,
  CountingStore,
  CountingDate,
  CountingNotes,
  CountingCreator,
  CountingFrom,
  CountingTo,
  CountingColumns
};

/// The countings of a database as a table. Numbers sort as numbers, everything else as text.
class CountingModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetRows(std::vector<CountingRow> rows);
  [[nodiscard]] const CountingRow& Row(int row) const { return rows_[static_cast<std::size_t>(row)]; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<CountingRow> rows_;
};

/// The rows that have every typed word in one of their columns, and the wanted state.
class CountingFilter : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  enum class Wanted { All, Temporary, Final };

  explicit CountingFilter(CountingModel& countings);

  /// Letters and digits of all keyboards are equal, and case does not matter.
  void SetText(const QString& text);
  void SetWanted(Wanted wanted);

 protected:
  [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  const CountingModel& countings_;
  PersianWords words_;
  Wanted wanted_ = Wanted::All;
};

}  // namespace koru
