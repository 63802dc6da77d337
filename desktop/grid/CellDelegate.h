#pragma once

#include "desktop/toolkit/WholeTextTip.h"

namespace koru {

class GridView;

/// Draws the cells of a GridView and creates their editors. Key presses and focus changes of an editor are
/// passed to the view's CellEditing.
class CellDelegate : public WholeTextTip {
  Q_OBJECT

 public:
  explicit CellDelegate(GridView& view);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  [[nodiscard]] QColor GroundOf(const QModelIndex& index, const QColor& rowColor) const;

  GridView& view_;
};

}  // namespace koru
