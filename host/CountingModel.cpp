#include "host/CountingModel.h"

#include <QColor>
#include <utility>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/PersianText.h"

namespace koru {
namespace {

constexpr QColor kFinal(0x59, 0x66, 0x75);

constexpr const char* kTitles[] = {
    "وضعيت", "شماره\nتاييد شده", "شماره\nرايانه اي", "شماره\nدستي", "انبار",
    "تاريخ", "توضيحات",          "تهيه كننده",       "از تاريخ",    "تا تاريخ"};
static_assert(std::size(kTitles) == CountingColumns);

std::string TextOf(const CountingRow& row, int column) {
  switch (column) {
    case State:
      return row.code ? "نهايي" : "موقت";
    case FinalNumber:
      return row.code ? std::to_string(*row.code) : std::string();
    case CountingKey:
      return std::to_string(row.id);
    case CountingManualCode:
      return row.manualCode;
    case CountingStore:
      return row.store;
    case CountingDate:
      return row.createDate;
    case CountingFrom:
      return row.fromDate;
    case CountingTo:
      return row.toDate;
    case CountingNotes:
      return row.notes;
    default:
      return row.creator;
  }
}

}  // namespace

void CountingModel::SetRows(std::vector<CountingRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int CountingModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CountingModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(CountingColumns);
}

QVariant CountingModel::data(const QModelIndex& index, int role) const {
  const CountingRow& row = Row(index.row());
  if (role == Qt::DisplayRole) return ToQt(TextOf(row, index.column()));
  if (role == Qt::ToolTipRole && index.column() == CountingNotes) return ToQt(row.notes).toHtmlEscaped();
  if (role == Qt::ForegroundRole && row.code) return OnDesktop(kFinal);
  // Digits alone would be aligned left.
  if (role == Qt::TextAlignmentRole) return static_cast<int>(kTrueRight);
  return {};
}

QVariant CountingModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return QString::fromUtf8(kTitles[section]);
  return {};
}

CountingFilter::CountingFilter(CountingModel& countings) : countings_(countings) {
  setSourceModel(&countings);
}

void CountingFilter::SetText(const QString& text) {
  words_ = PersianWords(FromQt(text));
  invalidateFilter();
}

void CountingFilter::SetWanted(Wanted wanted) {
  wanted_ = wanted;
  invalidateFilter();
}

bool CountingFilter::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
  const CountingRow& counting = countings_.Row(row);
  if (wanted_ != Wanted::All && counting.code.has_value() != (wanted_ == Wanted::Final)) return false;
  std::string texts;
  for (int column = 0; column < CountingColumns; ++column) texts += TextOf(counting, column) + '\n';
  return words_.AreIn({texts});
}

bool CountingFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const CountingRow& one = countings_.Row(left.row());
  const CountingRow& other = countings_.Row(right.row());
  if (left.column() == CountingKey) return one.id < other.id;
  if (left.column() == FinalNumber) return one.code < other.code;
  return FoldPersian(TextOf(one, left.column())) < FoldPersian(TextOf(other, right.column()));
}

}  // namespace koru
