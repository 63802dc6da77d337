#include "desktop/grid/PastePlan.h"

#include <QHeaderView>
#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridSearch.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

constexpr qsizetype kMinBarcode = 8;  ///< a shorter text can be a count
constexpr int kSampleRows = 100;      ///< enough to recognise a column
constexpr int kSeveral = -1;

/// Rows of the model by a text; kSeveral if more than one has it.
using RowsByText = std::unordered_map<std::string, int>;

class Planner {
 public:
  Planner(const GridView& view, const QModelIndex& from, const std::vector<QStringList>& block)
      : view_(view), rows_(view.Rows()), titles_(*view.horizontalHeader()), from_(from), block_(block) {
    for (const QStringList& texts : block_) width_ = std::max(width_, static_cast<int>(texts.size()));
  }

  PastePlan Run() {
    PlanColumns();
    const auto scan = std::ranges::find(columns_, view_.Scanning().ScanColumn());
    if (view_.Scanning().ScanColumn() < 0 || scan == columns_.end()) {
      PlanByPosition();
    } else {
      PlanByBarcode(static_cast<int>(scan - columns_.begin()));
    }
    return {std::move(columns_), std::move(planned_)};
  }

 private:
  void PlanColumns();
  void TakePlaces(int first);
  void TakeFigures(int barcodes);
  void PlanByPosition();
  void PlanByBarcode(int barcodes);
  [[nodiscard]] bool MayHaveBarcodes() const;
  [[nodiscard]] std::optional<int> BarcodesInBlock();
  [[nodiscard]] bool NamesGoods(int at, int barcodes, const std::function<bool(int col)>& isColumn) const;
  [[nodiscard]] bool IsCopiedHere(int barcodes, int first) const;
  [[nodiscard]] bool HasFigures(int at) const;
  [[nodiscard]] bool NamesGood(int col) const;
  void IndexBarcodes();
  [[nodiscard]] std::string Identity(const std::function<QString(int col)>& textOf) const;
  [[nodiscard]] QString CellText(int row, int col) const { return rows_.index(row, col).data().toString(); }
  [[nodiscard]] int ColumnAt(int place) const {
    if (place < 0) return PastePlan::kNone;
    return place >= titles_.count() ? PastePlan::kBeyondEnd : titles_.logicalIndex(place);
  }

  const GridView& view_;
  const GridModel& rows_;
  const QHeaderView& titles_;
  QModelIndex from_;
  const std::vector<QStringList>& block_;
  int width_ = 0;
  RowsByText barcodes_;
  std::vector<int> columns_;
  std::vector<PastePlan::Row> planned_;
};

void Planner::PlanColumns() {
  if (width_ == rows_.columnCount()) {
    columns_.resize(static_cast<std::size_t>(width_));
    std::iota(columns_.begin(), columns_.end(), 0);
    return;
  }
  if (width_ == rows_.columnCount() - view_.FirstColumn()) return TakePlaces(view_.FirstColumn());
  const std::optional<int> barcodes = BarcodesInBlock();
  const int first = barcodes ? titles_.visualIndex(view_.Scanning().ScanColumn()) - *barcodes
                             : titles_.visualIndex(from_.column());
  if (!barcodes || IsCopiedHere(*barcodes, first)) {
    TakePlaces(first);
  } else {
    TakeFigures(*barcodes);
  }
}

void Planner::TakePlaces(int first) {
  for (int i = 0; i < width_; ++i) columns_.push_back(ColumnAt(first + i));
}

void Planner::TakeFigures(int barcodes) {
  const bool takesFigures = from_.flags().testFlag(Qt::ItemIsEditable);
  const QModelIndex begin = takesFigures ? from_ : FirstCellToFill(view_, from_.row());
  int place = begin.isValid() ? titles_.visualIndex(begin.column()) : titles_.count();
  for (int i = 0; i < width_; ++i) {
    if (i == barcodes) {
      columns_.push_back(view_.Scanning().ScanColumn());
    } else {
      const bool names = NamesGoods(i, barcodes, [](int) { return true; });
      columns_.push_back(HasFigures(i) && !names ? ColumnAt(place++) : PastePlan::kNone);
    }
  }
}

/// Whether a text is long enough: a few figures are pasted without a look at all lines.
bool Planner::MayHaveBarcodes() const {
  return std::ranges::any_of(block_, [](const QStringList& texts) {
    return std::ranges::any_of(texts,
                               [](const QString& text) { return text.trimmed().size() >= kMinBarcode; });
  });
}

/// The column of the block that has most barcodes of lines.
std::optional<int> Planner::BarcodesInBlock() {
  if (view_.Scanning().ScanColumn() < 0 || !MayHaveBarcodes()) return std::nullopt;
  IndexBarcodes();
  std::vector<int> hits(static_cast<std::size_t>(width_), 0);
  for (const QStringList& texts : block_) {
    for (int i = 0; i < texts.size(); ++i) {
      const bool isBarcode =
          texts[i].trimmed().size() >= kMinBarcode && barcodes_.contains(FoldedText(texts[i]));
      hits[static_cast<std::size_t>(i)] += isBarcode ? 1 : 0;
    }
  }
  const auto most = std::ranges::max_element(hits);
  if (most == hits.end() || *most == 0) return std::nullopt;
  return static_cast<int>(most - hits.begin());
}

/// Whether most texts of a column of the block are texts of their good, such as its code or name: those of
/// its line in a column for which `isColumn` is true. `barcodes`: the column of the block that has the
/// barcodes.
bool Planner::NamesGoods(int at, int barcodes, const std::function<bool(int col)>& isColumn) const {
  int known = 0;
  int equal = 0;
  for (const QStringList& texts : block_) {
    const auto line = barcodes_.find(FoldedText(texts.value(barcodes)));
    const std::string text = FoldedText(texts.value(at));
    if (line == barcodes_.end() || line->second == kSeveral || text.empty()) continue;
    if (known == kSampleRows) break;
    ++known;
    for (int col = 0; col < rows_.columnCount(); ++col) {
      if (!NamesGood(col) || !isColumn(col) || FoldedText(CellText(line->second, col)) != text) continue;
      ++equal;
      break;
    }
  }
  return 2 * equal > known;
}

/// Whether the texts beside the barcodes are those of the goods when the barcodes have their own column, so
/// that all columns of the block are those of the grid.
bool Planner::IsCopiedHere(int barcodes, int first) const {
  for (int i = 0; i < width_; ++i) {
    const int own = ColumnAt(first + i);
    if (i != barcodes && NamesGoods(i, barcodes, [own](int col) { return col == own; })) return true;
  }
  return false;
}

bool Planner::HasFigures(int at) const {
  return std::ranges::any_of(block_, [at](const QStringList& texts) {
    return at < texts.size() && !texts[at].trimmed().isEmpty() && IsTypedNumber(FromQt(texts[at]));
  });
}

/// Whether a column of the grid has a text of the good, such as its name.
bool Planner::NamesGood(int col) const {
  return col >= view_.FirstColumn() && col != view_.Scanning().ScanColumn() && !view_.isColumnHidden(col) &&
         !rows_.StyleOf(col).number && !rows_.Source()->IsEditable(col);
}

void Planner::IndexBarcodes() {
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const std::string barcode = FoldedText(CellText(row, view_.Scanning().ScanColumn()));
    if (barcode.empty()) continue;
    const auto [known, added] = barcodes_.emplace(barcode, row);
    if (!added) known->second = kSeveral;
  }
}

void Planner::PlanByPosition() {
  for (std::size_t i = 0; i < block_.size(); ++i) {
    const QModelIndex line = rows_.index(from_.row() + static_cast<int>(i), 0);
    planned_.push_back(
        {line, line.isValid() ? PastePlan::Match::Line : PastePlan::Match::BeyondEnd, block_[i]});
  }
}

/// The text that a line and a row of the block have in common: the barcode, or else the texts of the good.
std::string Planner::Identity(const std::function<QString(int col)>& textOf) const {
  const std::string barcode = FoldedText(textOf(view_.Scanning().ScanColumn()));
  if (!barcode.empty()) return "b" + barcode;
  std::string texts;
  for (const int col : columns_) {
    if (col >= 0 && NamesGood(col)) texts += "\t" + FoldedText(textOf(col));
  }
  return texts.find_first_not_of('\t') == std::string::npos ? std::string() : texts;
}

void Planner::PlanByBarcode(int barcodes) {
  RowsByText lines;
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const auto [known, added] = lines.emplace(Identity([&](int col) { return CellText(row, col); }), row);
    if (!added) known->second = kSeveral;
  }
  const std::string title =
      FoldedText(rows_.headerData(view_.Scanning().ScanColumn(), Qt::Horizontal, Qt::DisplayRole).toString());
  std::set<int> taken;
  for (const QStringList& texts : block_) {
    if (FoldedText(texts.value(barcodes)) == title) continue;
    const std::string wanted = Identity([&](int col) {
      const auto at = std::ranges::find(columns_, col) - columns_.begin();
      return texts.value(static_cast<qsizetype>(at));
    });
    const auto line = lines.find(wanted);
    const bool isFound = !wanted.empty() && line != lines.end() && line->second != kSeveral;
    PastePlan::Row row{isFound ? rows_.index(line->second, 0) : QModelIndex(), PastePlan::Match::Unknown,
                       texts};
    if (isFound) {
      row.match = taken.insert(line->second).second ? PastePlan::Match::Line : PastePlan::Match::Repeated;
    }
    planned_.push_back(row);
  }
}

}  // namespace

PastePlan PlanPaste(const GridView& view, const QModelIndex& from, const std::vector<QStringList>& block) {
  return Planner(view, from, block).Run();
}

}  // namespace koru
