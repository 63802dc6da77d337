#include "desktop/floor/FloorLog.h"

#include <algorithm>
#include <array>
#include <utility>

#include "desktop/floor/FloorTexts.h"
#include "desktop/toolkit/QtText.h"
#include "lines/LineColumns.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

QString TitleOf(int column) {
  constexpr std::array<const char*, FloorLog::Columns> kTitles = {"زمان",  "شمارش", "دستگاه", "كالا",
                                                                  "باركد", "رقم",   "وضعيت"};
  return QString::fromUtf8(kTitles.at(static_cast<std::size_t>(column)));
}

/// A field of CSV. What a device sends must not become a formula of a spreadsheet.
QString CsvField(QString text) {
  const bool isNumber = IsTypedNumber(FromQt(text));
  if (!isNumber && !text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.front())) text.prepend(u'\'');
  text.replace(u'"', QStringLiteral("\"\""));
  return u'"' + text + u'"';
}

}  // namespace

GoodNames::GoodNames(Grid& lines) : lines_(lines) {
  rowsChanged_ = lines.RowsChanged.Subscribe([this](const GridChange& change) {
    if (change.kind != GridChange::Kind::RowTexts) isStale_ = true;
  });
}

const std::string& GoodNames::Of(const std::string& barcode) {
  if (std::exchange(isStale_, false)) {
    names_.clear();
    for (int row = 1; row < lines_.Rows(); ++row) {
      names_.try_emplace(std::string(lines_.TextMatrix(row, LineColumn::Barcode)),
                         lines_.TextMatrix(row, LineColumn::GoodName));
    }
  }
  static const std::string kNone;
  const auto found = names_.find(barcode);
  return found == names_.end() ? kNone : found->second;
}

FloorLog::FloorLog(GoodNames& names, std::function<bool(int count)> hides, QObject* parent)
    : QAbstractTableModel(parent), names_(names), hides_(std::move(hides)) {}

void FloorLog::Add(const JournalFigure& figure, const std::string& device) {
  new_.push_back({figure, device});
}

void FloorLog::ShowNew() {
  if (new_.empty()) return;
  const int first = static_cast<int>(entries_.size());
  beginInsertRows({}, first, first + static_cast<int>(new_.size()) - 1);
  std::move(new_.begin(), new_.end(), std::back_inserter(entries_));
  new_.clear();
  endInsertRows();
  if (entries_.size() <= kMaxEntries) return;
  const auto surplus = static_cast<std::ptrdiff_t>(entries_.size() - kMaxEntries);
  beginRemoveRows({}, 0, static_cast<int>(surplus) - 1);
  entries_.erase(entries_.begin(), entries_.begin() + surplus);
  endRemoveRows();
}

void FloorLog::Clear() {
  beginResetModel();
  entries_.clear();
  new_.clear();
  endResetModel();
}

void FloorLog::HiddenChanged() {
  if (!entries_.empty()) emit dataChanged(index(0, Figure), index(rowCount() - 1, State));
}

int FloorLog::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int FloorLog::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QVariant FloorLog::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  if (role == Qt::DisplayRole) {
    return TextOf(entries_[static_cast<std::size_t>(index.row())], index.column());
  }
  return {};
}

QVariant FloorLog::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section < 0 || section >= Columns)
    return {};
  return TitleOf(section);
}

/// The form's sentence may name the figure, and so may be hidden with it.
QString FloorLog::StateOf(const Entry& entry) const {
  const FloorAnswer& answer = entry.figure.answer;
  QString text = TitleOfState(answer.state);
  if (hides_(entry.figure.count)) return text;
  if (answer.state == FigureState::Conflict) {
    const QString by = answer.by.empty() ? QStringLiteral("ميز") : Isolated(ToQt(answer.by));
    const QString now = answer.text.empty() ? QStringLiteral("خالي") : ToQt(answer.text);
    text += QStringLiteral(" (%1 از %2)").arg(now, by);
  }
  if (!answer.message.empty()) text += QStringLiteral(": ") + ToQt(answer.message);
  return text;
}

QString FloorLog::TextOf(const Entry& entry, int column) const {
  const FloorFigure& figure = entry.figure.figure;
  switch (column) {
    case Time:
      return TimeText(entry.figure.time);
    case Count:
      return TitleOfCount(entry.figure.count);
    case Device:
      return ToQt(entry.device);
    case Good:
      return ToQt(names_.Of(figure.line.barcode));
    case Barcode:
      return ToQt(figure.line.barcode);
    case Figure:
      if (hides_(entry.figure.count)) return QStringLiteral("پنهان");
      return (figure.operation == FloorFigure::Operation::Add ? QStringLiteral("\u200E+") : QString()) +
             ToQt(figure.text);
    case State:
      return StateOf(entry);
    default:
      return {};
  }
}

QByteArray FloorLog::Csv() const {
  QString text(QChar::ByteOrderMark);
  const auto addLine = [&text](const std::function<QString(int)>& field) {
    for (int column = 0; column < Columns; ++column) {
      text += (column == 0 ? QString() : QStringLiteral(",")) + CsvField(field(column));
    }
    text += QStringLiteral("\r\n");
  };
  addLine([](int column) { return TitleOf(column); });
  for (const Entry& entry : entries_) addLine([&](int column) { return TextOf(entry, column); });
  return text.toUtf8();
}

}  // namespace koru
