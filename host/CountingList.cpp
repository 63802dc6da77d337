#include "host/CountingList.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/fields/Fields.h"

// The widgets belong to their list, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr int kMinNotes = 130;
constexpr int kMaxColumn = 200;
constexpr int kCellMargin = 8;
constexpr int kMeasuredRows = 200;

}  // namespace

CountingList::CountingList(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("countings"));
  auto* const list = new QVBoxLayout(this);
  list->setContentsMargins(0, 0, 0, 0);
  AddFilter(*list);
  AddTable(*list);
}

void CountingList::AddFilter(QVBoxLayout& list) {
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("filter"));
  text_->setPlaceholderText(QStringLiteral("جستجو در فهرست"));
  text_->setToolTip(QStringLiteral("Ctrl+F"));
  text_->setClearButtonEnabled(true);
  text_->installEventFilter(this);
  state_ = new QComboBox(this);
  state_->setObjectName(QStringLiteral("state"));
  state_->addItems({QStringLiteral("همة شمارش\u200cها"), QStringLiteral("موقت"), QStringLiteral("نهايي")});
  KeepFromWheel(*state_);
  count_ = new QLabel(this);
  count_->setObjectName(QStringLiteral("count"));
  auto* const bar = new QHBoxLayout;
  bar->addWidget(text_, 1);
  bar->addWidget(state_);
  bar->addWidget(count_);
  list.addLayout(bar);
  connect(text_, &QLineEdit::textChanged, this, &CountingList::Filter);
  connect(state_, &QComboBox::currentIndexChanged, this, &CountingList::Filter);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, text_, [this] {
    text_->setFocus();
    text_->selectAll();
  });
}

void CountingList::AddTable(QVBoxLayout& list) {
  table_ = new QTableView(this);
  table_->setObjectName(QStringLiteral("list"));
  table_->setModel(&filter_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->setAlternatingRowColors(true);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 10);
  table_->horizontalHeader()->setResizeContentsPrecision(kMeasuredRows);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->setSortingEnabled(true);
  table_->sortByColumn(CountingKey, Qt::DescendingOrder);
  list.addWidget(table_, 1);
  connect(table_, &QTableView::activated, this, [this](const QModelIndex& at) {
    emit countingWanted(static_cast<int>(model_.Row(filter_.mapToSource(at).row()).id));
  });
}

void CountingList::Show(std::vector<CountingRow> countings) {
  const int id = CurrentID();
  model_.SetRows(std::move(countings));
  FitColumns();
  Choose(id);
  ShowCount();
}

void CountingList::FocusRows() { table_->setFocus(); }

void CountingList::Filter() {
  const int id = CurrentID();
  filter_.SetText(text_->text());
  filter_.SetWanted(static_cast<CountingFilter::Wanted>(state_->currentIndex()));
  Choose(id);
  ShowCount();
}

void CountingList::ShowCount() {
  const int shown = filter_.rowCount();
  const int all = model_.rowCount();
  count_->setText(shown == all ? QStringLiteral("%1 شمارش").arg(all)
                               : QStringLiteral("%1 از %2 شمارش").arg(shown).arg(all));
}

int CountingList::CurrentID() const {
  const QModelIndex at = filter_.mapToSource(table_->currentIndex());
  return at.isValid() ? static_cast<int>(model_.Row(at.row()).id) : 0;
}

/// Makes that counting the current one; if it is not in the list, the first one.
void CountingList::Choose(int id) {
  int row = 0;
  for (int at = 0; at < filter_.rowCount(); ++at) {
    if (model_.Row(filter_.mapToSource(filter_.index(at, 0)).row()).id == id) row = at;
  }
  if (filter_.rowCount() > 0) table_->setCurrentIndex(filter_.index(row, CountingKey));
}

/// The notes take the width that the other columns leave, and are never too narrow to read.
void CountingList::FitColumns() {
  int others = 0;
  for (int column = 0; column < CountingColumns; ++column) {
    if (column == CountingNotes) continue;
    table_->resizeColumnToContents(column);
    table_->setColumnWidth(column, std::min(table_->columnWidth(column) + kCellMargin, kMaxColumn));
    others += table_->columnWidth(column);
  }
  table_->setColumnWidth(CountingNotes, std::max(kMinNotes, table_->viewport()->width() - others));
}

void CountingList::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitColumns();
}

/// Escape empties the filter; Down and Enter lead to the rows.
bool CountingList::eventFilter(QObject* object, QEvent* event) {
  if (object != text_ || event->type() != QEvent::KeyPress) return false;
  switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      text_->clear();
      FocusRows();
      return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      FocusRows();
      return true;
    default:
      return false;
  }
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
