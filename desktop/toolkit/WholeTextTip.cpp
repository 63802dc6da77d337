#include "desktop/toolkit/WholeTextTip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStringList>
#include <QToolTip>

#include "desktop/toolkit/PlainText.h"

namespace koru {

QString WholeTextTip::TipOf(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStringList lines;
  const bool isCut = sizeHint(option, index).width() > option.rect.width();
  if (isCut) lines += index.data(Qt::DisplayRole).toString();
  const QString ofModel = index.data(Qt::ToolTipRole).toString();
  if (!ofModel.isEmpty()) lines += ofModel;
  return lines.join(u'\n');
}

bool WholeTextTip::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
  QToolTip::showText(event->globalPos(), PlainToolTip(TipOf(option, index)), view, option.rect);
  return true;
}

}  // namespace koru
