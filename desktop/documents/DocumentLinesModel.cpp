#include "desktop/documents/DocumentLinesModel.h"

#include <array>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/ShownNumber.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

constexpr std::array<const char*, DocumentLinesModel::ColumnCount> kTitles{
    "رديف", "كد كالا", "نام كالا", "واحد", "مقدار", "ارزش واحد", "مبلغ"};

/// Keeps the minus sign in place between right-to-left texts.
QString Shown(double number) { return QChar(0x200E) + GroupedNumber(ToQt(NumberText(number))); }

QString TextOf(const DocumentLine& line, int column, int row) {
  switch (column) {
    case DocumentLinesModel::RowNumber:
      return QString::number(row + 1);
    case DocumentLinesModel::GoodCode:
      return ToQt(line.goodCode);
    case DocumentLinesModel::GoodName:  // a deleted good is shown by its barcode
      return ToQt(line.goodName.empty() ? line.barcode : line.goodName);
    case DocumentLinesModel::Unit:
      return ToQt(line.unit);
    case DocumentLinesModel::Quantity:
      return Shown(line.quantity);
    case DocumentLinesModel::UnitValue:
      return Shown(line.unitValue);
    case DocumentLinesModel::Amount:
      return Shown(line.Amount());
    default:
      return {};
  }
}

}  // namespace

int DocumentLinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int DocumentLinesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant DocumentLinesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const DocumentLine& line = lines_.at(static_cast<std::size_t>(index.row()));
  if (role == Qt::DisplayRole) return TextOf(line, index.column(), index.row());
  if (role == Qt::ToolTipRole && index.column() <= GoodName) {
    return QStringLiteral("باركد: %1").arg(ToQt(line.barcode));
  }
  if (role == Qt::TextAlignmentRole) {
    if (index.column() == RowNumber) return Qt::AlignCenter;
    if (index.column() >= Quantity) return QVariant(kTrueRight);
    return QVariant(Qt::AlignLeading | Qt::AlignVCenter);
  }
  return {};
}

QVariant DocumentLinesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool known = orientation == Qt::Horizontal && section >= 0 && section < ColumnCount;
  if (!known || role != Qt::DisplayRole) return {};
  return QString::fromUtf8(kTitles.at(static_cast<std::size_t>(section)));
}

}  // namespace koru
