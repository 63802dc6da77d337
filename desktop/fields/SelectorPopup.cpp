#include "desktop/fields/SelectorPopup.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/toolkit/PopupPlace.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/PersianText.h"

namespace koru {
namespace {

constexpr int kIdRole = Qt::UserRole;
constexpr int kFoldedRole = Qt::UserRole + 1;
constexpr int kHeight = 300;
constexpr int kMinWidth = 260;

QString Folded(const QString& text) { return ToQt(FoldPersian(FromQt(text))); }

}  // namespace

SelectorPopup::SelectorPopup(QWidget* parent) : QFrame(parent, Qt::Popup) {
  setFrameShape(StyledPanel);
  filter_ = new QLineEdit(this);  // NOLINT(cppcoreguidelines-owning-memory)
  filter_->setObjectName(QStringLiteral("filter"));
  filter_->setPlaceholderText(QStringLiteral("جستجو"));
  filter_->setClearButtonEnabled(true);
  filter_->installEventFilter(this);
  view_ = new QTreeView(this);  // NOLINT(cppcoreguidelines-owning-memory)
  view_->setObjectName(QStringLiteral("records"));
  view_->setHeaderHidden(true);
  view_->setUniformRowHeights(true);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setFocusPolicy(Qt::NoFocus);
  shown_.setSourceModel(&records_);
  shown_.setRecursiveFilteringEnabled(true);
  shown_.setAutoAcceptChildRows(true);
  shown_.setFilterRole(kFoldedRole);
  view_->setModel(&shown_);
  auto* const layout = new QVBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(4, 4, 4, 4);
  layout->setSpacing(4);
  layout->addWidget(filter_);
  layout->addWidget(view_);
  connect(filter_, &QLineEdit::textChanged, this, &SelectorPopup::Narrow);
  connect(view_, &QTreeView::clicked, this, &SelectorPopup::Pick);
}

void SelectorPopup::OpenUnder(const QWidget& field, const std::vector<SelectorRecord>& records,
                              std::int32_t selected, const QString& typed) {
  Fill(records);
  filter_->setText(typed);
  Narrow(typed);  // also if the filter still contains the same text
  resize(std::max(field.width(), kMinWidth), kHeight);
  move(PopupPlace(field, size()));
  show();
  filter_->setFocus();
  if (typed.isEmpty()) Show(selected);
}

void SelectorPopup::Fill(const std::vector<SelectorRecord>& records) {
  records_.clear();
  std::vector<QStandardItem*> items;
  items.reserve(records.size());
  bool isTree = false;
  for (const SelectorRecord& record : records) {
    const QString name = ToQt(record.name);
    auto* const item = new QStandardItem(name);  // NOLINT(cppcoreguidelines-owning-memory)
    item->setData(record.id, kIdRole);
    item->setData(Folded(name), kFoldedRole);
    if (!record.offered) {
      item->setEnabled(false);
      item->setToolTip(QStringLiteral("اين مورد زيرمجموعه دارد: يكي از موارد زير آن را انتخاب كنيد."));
    }
    items.push_back(item);
    isTree = isTree || record.parent != SelectorRecord::kNoParent;
  }
  for (std::size_t i = 0; i < records.size(); ++i) {
    const int parent = records[i].parent;
    QStandardItem* const above = parent == SelectorRecord::kNoParent
                                     ? records_.invisibleRootItem()
                                     : items[static_cast<std::size_t>(parent)];
    above->appendRow(items[i]);
  }
  view_->setRootIsDecorated(isTree);
  view_->expandAll();
}

void SelectorPopup::Narrow(const QString& typed) {
  shown_.setFilterFixedString(Folded(typed));
  view_->expandAll();
  view_->setCurrentIndex(typed.isEmpty() ? QModelIndex() : FirstMatch({}));
}

/// The first record that is offered, from the top, whose own name contains the filter's text.
QModelIndex SelectorPopup::FirstMatch(const QModelIndex& under) const {
  const QString wanted = Folded(filter_->text());
  for (int row = 0; row < shown_.rowCount(under); ++row) {
    const QModelIndex index = shown_.index(row, 0, under);
    const bool isOffered = index.flags().testFlag(Qt::ItemIsEnabled);
    if (isOffered && index.data(kFoldedRole).toString().contains(wanted)) return index;
    const QModelIndex below = FirstMatch(index);
    if (below.isValid()) return below;
  }
  return {};
}

void SelectorPopup::Show(std::int32_t selected) {
  const QModelIndexList found = shown_.match(shown_.index(0, 0), kIdRole, selected, 1,
                                             Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
  const bool isOffered = !found.isEmpty() && found.first().flags().testFlag(Qt::ItemIsEnabled);
  view_->setCurrentIndex(isOffered ? found.first() : FirstMatch({}));
  view_->scrollTo(view_->currentIndex(), QAbstractItemView::PositionAtCenter);
}

bool SelectorPopup::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(object, event);
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Pick(view_->currentIndex());
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      QCoreApplication::sendEvent(view_, event);
      return true;
    default:
      return false;
  }
}

void SelectorPopup::Pick(const QModelIndex& index) {
  if (!index.isValid() || !index.flags().testFlag(Qt::ItemIsEnabled)) return;
  const auto id = static_cast<std::int32_t>(index.data(kIdRole).toInt());
  hide();
  emit picked(id);
}

}  // namespace koru
