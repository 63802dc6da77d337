#pragma once

#include <QStyledItemDelegate>

namespace koru {

/// A delegate that shows the whole text of a cell in a tooltip where the cell cuts it off, above the tooltip
/// that the model has for the cell.
class WholeTextTip : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

  /// The text of that tooltip; empty if there is none.
  [[nodiscard]] QString TipOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
};

}  // namespace koru
