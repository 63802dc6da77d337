#include "desktop/forms/MovedStockWindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/grid/CellDelegate.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/WindowPlace.h"
#include "lines/frmMovedStock.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(1000, 620);
constexpr int kSpace = 32;

/// Draws a cell as a check box, checked where it has a text.
class MarkDelegate : public CellDelegate {
 public:
  using CellDelegate::CellDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    CellDelegate::paint(painter, option, index);
    const QStyle& style = *QApplication::style();
    QStyleOptionViewItem box(option);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth),
                     style.pixelMetric(QStyle::PM_IndicatorHeight));
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    box.state =
        QStyle::State_Enabled | (index.data().toString().isEmpty() ? QStyle::State_Off : QStyle::State_On);
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    CellDelegate::initStyleOption(option, index);
    option->text.clear();
  }
};

ColumnStyle Number() {
  ColumnStyle style;
  style.number = true;
  return style;
}

}  // namespace

MovedStockWindow::MovedStockWindow(frmMovedStock& form) : FormWindow(form), form_(form) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(6);
  auto* const summary = new QLabel(this);
  QFont bold = font();
  bold.setBold(true);
  summary->setFont(bold);
  Binding().Bind(form_.lblSummary, *summary);
  layout->addWidget(summary);
  AddLines(*layout);
  AddDocuments(*layout);
  AddCommands(*layout);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  resize(FirstSize(kDefaultSize));
}

void MovedStockWindow::AddLines(QBoxLayout& window) {
  auto* const lines = new GridView(this);
  lines->setAccessibleName(QStringLiteral("سطرهايي كه موجودي آنها تغيير كرده است"));
  for (const int column : {MovedColumn::Shown, MovedColumn::Now, MovedColumn::Difference})
    lines->SetColumnStyle(column, Number());
  lines->SetStretchColumn(MovedColumn::GoodName);
  lines->SetRowNumbers(true);
  lines->setItemDelegateForColumn(MovedColumn::Mark, new MarkDelegate(*lines));
  Binding().Bind(form_.flexMoved, *lines);
  // In a grid, a character searches; here Space checks the line.
  auto* const check = new QShortcut(Qt::Key_Space, lines, nullptr, nullptr, Qt::WidgetShortcut);
  connect(check, &QShortcut::activated, this, [this] { form_.flexMoved.UserKey({kSpace, 0}); });
  window.addWidget(lines, 3);
  lines->setFocus();
}

void MovedStockWindow::AddDocuments(QBoxLayout& window) {
  auto* const sentence = new QLabel(this);
  sentence->setWordWrap(true);
  Binding().Bind(form_.lblDocuments, *sentence);
  window.addWidget(sentence);
  auto* const documents = new GridView(this);
  documents->setAccessibleName(QStringLiteral("سندهاي سطر"));
  documents->SetColumnStyle(MoveColumn::Quantity, Number());
  documents->SetStretchColumn(MoveColumn::Kind);
  documents->SetRowNumbers(true);
  Binding().Bind(form_.flexDocuments, *documents);
  window.addWidget(documents, 2);
}

void MovedStockWindow::AddCommands(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  window.addLayout(bar);
  const auto add = [this, bar](Button& command) {
    auto* const button = new QPushButton(this);
    Binding().Bind(command, *button);
    bar->addWidget(button);
    return button;
  };
  add(form_.cmdTakeMarked)->setProperty("main", true);
  add(form_.cmdTakeAll);
  bar->addWidget(NewHint(QStringLiteral("انتخاب سطر: Space    واحد و نرخ سطر هم مانند «محاسبه» خوانده "
                                        "مي‌شود."),
                         this));
  bar->addStretch();
  QPushButton* const close = add(form_.cmdClose);
  close->setToolTip(WithKeys(close->text(), QStringLiteral("Esc")));
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
