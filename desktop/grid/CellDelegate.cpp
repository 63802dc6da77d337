#include "desktop/grid/CellDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/Keys.h"

namespace koru {
namespace {

constexpr int kSignSize = 7;
constexpr int kSignMargin = 5;
constexpr QColor kMarkColor(0xB3, 0x26, 0x1E);
constexpr QColor kMarkedGround(0xFF, 0xE3, 0xB8);
constexpr QColor kTintedGround(0xC4, 0xEB, 0xC8);

void PaintSign(QPainter& painter, const QRect& cell, const ColumnStyle& style) {
  const bool up = style.sign == ColumnStyle::Sign::Up;
  const QRectF box(cell.left() + kSignMargin, cell.center().y() - kSignSize / 2.0, kSignSize, kSignSize);
  const double base = up ? box.bottom() : box.top();
  const double tip = up ? box.top() : box.bottom();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(style.color);
  painter.drawPolygon(QPolygonF({{box.left(), base}, {box.right(), base}, {box.center().x(), tip}}));
  painter.restore();
}

/// An exclamation mark in a filled circle.
void PaintMark(QPainter& painter, const QRect& cell) {
  const int size = std::min(cell.height() - 4, 14);
  const QRect circle(cell.left() + 3, cell.center().y() - size / 2, size, size);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kMarkColor);
  painter.drawEllipse(circle);
  QFont bold = painter.font();
  bold.setBold(true);
  bold.setPixelSize(size - 3);
  painter.setFont(bold);
  painter.setPen(Qt::white);
  painter.drawText(circle, Qt::AlignCenter, QStringLiteral("!"));
  painter.restore();
}

}  // namespace

CellDelegate::CellDelegate(GridView& view) : WholeTextTip(&view), view_(view) {}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  auto* const edit = new QLineEdit(parent);  // NOLINT(cppcoreguidelines-owning-memory)
  edit->setObjectName(QStringLiteral("cellEditor"));
  edit->setProperty("cell", true);
  edit->setFrame(false);
  if (view_.Rows().StyleOf(index.column()).number) {
    edit->setLayoutDirection(Qt::LeftToRight);
    edit->setAlignment(Qt::AlignRight);
    AcceptOnlyNumbers(*edit);
    connect(edit, &QLineEdit::inputRejected, this, [this] { view_.RefuseLetter(); });
  }
  return edit;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* const edit = qobject_cast<QLineEdit*>(editor);
  if (edit == nullptr || edit->isModified())
    return;  // a changed row does not replace a text that is being typed
  const QString text = index.data(Qt::EditRole).toString();
  if (edit->text() == text) return;  // the change is another cell's: selection and cursor stay
  edit->setText(text);
  edit->selectAll();  // a figure typed now replaces the new text, as it would have the old one
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& /*index*/) const {
  editor->setGeometry(option.rect.adjusted(-1, -1, 1, 1));
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  WholeTextTip::initStyleOption(option, index);
  const ColumnStyle style = view_.Rows().StyleOf(index.column());
  if (style.number) option->direction = Qt::LeftToRight;
  if (style.color.isValid()) option->palette.setColor(QPalette::HighlightedText, style.color);
  const QBrush& ofRow = option->backgroundBrush;
  const bool isSet = ofRow.style() != Qt::NoBrush;
  option->backgroundBrush = GroundOf(index, isSet ? ofRow.color() : option->palette.color(QPalette::Base));
}

/// The current row is tinted, and editable cells are nearer to the ground of texts.
QColor CellDelegate::GroundOf(const QModelIndex& index, const QColor& rowColor) const {
  if (view_.Rows().IsMarked(index)) return OnDesktop(kMarkedGround);
  if (view_.Tint().Has(index)) return OnDesktop(kTintedGround);
  if (index.row() == view_.currentIndex().row()) return OnDesktop({0xD8, 0xE6, 0xF7});
  if (!index.flags().testFlag(Qt::ItemIsEditable)) return rowColor;
  const QColor base = QApplication::palette().color(QPalette::Base);
  return {(rowColor.red() + 2 * base.red()) / 3, (rowColor.green() + 2 * base.green()) / 3,
          (rowColor.blue() + 2 * base.blue()) / 3};
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  WholeTextTip::paint(painter, option, index);
  const ColumnStyle style = view_.Rows().StyleOf(index.column());
  if (style.sign != ColumnStyle::Sign::None && !index.data(Qt::DisplayRole).toString().isEmpty()) {
    PaintSign(*painter, option.rect, style);
  }
  if (view_.Rows().IsMarked(index)) PaintMark(*painter, option.rect);
  if (index == view_.currentIndex() && view_.hasFocus()) {
    painter->setPen(QPen(OnDesktop({0x2F, 0x5D, 0x8C}), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  }
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event) {
  auto* const edit = qobject_cast<QLineEdit*>(object);
  if (edit == nullptr) return false;
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Escape || LeavesGrid(key)) event->accept();
    return false;
  }
  if (event->type() == QEvent::KeyPress)
    return view_.Editing().KeyPressed(*edit, *static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::FocusOut && !edit->isAncestorOf(QApplication::focusWidget())) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
      view_.Editing().FocusLeft(*edit);
  }
  return false;
}

}  // namespace koru
