#include "lines/CountImport.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "lines/LineEditing.h"
#include "platform/text/Numbers.h"
#include "platform/text/PersianText.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

/// A barcode or code as it is compared.
std::string KeyOf(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  std::string latin = LatinDigits(text);
  std::replace(latin.begin(), latin.end(), '\t', ' ');
  const std::size_t first = latin.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return FoldPersian(latin.substr(first, latin.find_last_not_of(kBlanks) + 1 - first));
}

/// The lines by the text of one column.
class LinesByKey {
 public:
  LinesByKey(const Grid& lines, int col) : lines_(lines), col_(col) {
    for (int row = 1; row < lines.Rows(); ++row) {
      std::string key = KeyOf(lines.TextMatrix(row, col));
      if (!key.empty()) rows_[std::move(key)].push_back(row);
    }
  }

  /// The rows of the grid with that text; those alone that are written the same, if there are any.
  [[nodiscard]] std::vector<int> Find(const std::string& key, std::string_view text) const {
    const auto found = rows_.find(key);
    if (found == rows_.end()) return {};
    std::vector<int> same;
    for (const int row : found->second) {
      if (Trim(lines_.TextMatrix(row, col_)) == Trim(text)) same.push_back(row);
    }
    return same.empty() ? found->second : same;
  }

 private:
  const Grid& lines_;
  int col_;
  std::unordered_map<std::string, std::vector<int>> rows_;
};

/// Whether the cell of the table has a figure, or what should be one.
bool HasText(const std::string& cell) {
  return cell.find_first_not_of(" \t\r\n") != std::string::npos && !KeyOf(cell).empty();
}

class Planner {
 public:
  Planner(const FileTable& table, const ImportColumns& columns, const ImportRules& rules, const Grid& lines)
      : table_(table),
        columns_(columns),
        rules_(rules),
        lines_(lines),
        byBarcode_(lines, LineColumn::Barcode),
        byCode_(lines, LineColumn::GoodCode) {}

  std::vector<ImportedFigure> Plan() {
    CountKeys();
    for (std::size_t i = columns_.firstRow; i < table_.rows.size(); ++i) AddRow(table_.rows[i]);
    for (const auto& [cell, figures] : cells_) Settle(figures);
    return std::move(plan_);
  }

 private:
  /// The text that decides the line of a row, and whether it is a code.
  struct Key {
    std::string text;
    std::string folded;
    bool isCode = false;
  };

  [[nodiscard]] Key KeyOfRow(const FileTable::Row& row) const {
    const std::string& barcode = CellOf(row, columns_.barcode);
    std::string folded = KeyOf(barcode);
    if (!folded.empty()) return {barcode, std::move(folded), false};
    const std::string& code = CellOf(row, columns_.code);
    return {code, KeyOf(code), true};
  }

  void CountKeys() {
    for (std::size_t i = columns_.firstRow; i < table_.rows.size(); ++i) {
      Key key = KeyOfRow(table_.rows[i]);
      if (!key.isCode) ++rowsOfBarcode_[std::move(key.folded)].all;
    }
  }

  /// The line of a row; 0 if there is none, and `state` says why.
  int LineOf(const Key& key, ImportState& state) {
    std::size_t place = 0;  // among the rows with this barcode
    std::size_t rows = 0;
    if (!key.isCode) {
      RowsOfBarcode& same = rowsOfBarcode_[key.folded];
      place = same.seen++;
      rows = same.all;
    }
    state = ImportState::NoKey;
    if (key.folded.empty()) return 0;
    const std::vector<int> found = (key.isCode ? byCode_ : byBarcode_).Find(key.folded, key.text);
    state = found.empty() ? ImportState::NoSuchLine : ImportState::SeveralLines;
    if (found.size() == 1) return found.front();
    return !found.empty() && found.size() == rows ? found[place] : 0;
  }

  void AddRow(const FileTable::Row& row) {
    const Key key = KeyOfRow(row);
    ImportState problem = ImportState::ComesIn;
    const int line = LineOf(key, problem);
    for (std::size_t i = 0; i < kImportedCounts; ++i) {
      const std::string& text = CellOf(row, columns_.counts.at(i));
      if (!HasText(text) || !lines_.IsEditable(GridColumnOf(i))) continue;
      ImportedFigure figure;
      figure.fileRow = row.number;
      figure.key = key.text;
      figure.text = text;
      figure.line = line;
      figure.col = GridColumnOf(i);
      if (line == 0) {
        figure.state = problem;
      } else {
        figure.barcode = lines_.TextMatrix(line, LineColumn::Barcode);
        figure.before = Trim(lines_.TextMatrix(line, figure.col));
        if (!IsTypedNumber(text)) figure.state = ImportState::NotANumber;
        cells_[{line, figure.col}].push_back(plan_.size());
      }
      plan_.push_back(std::move(figure));
    }
  }

  /// Decides on all figures of the file for one cell.
  void Settle(const std::vector<std::size_t>& figures) {
    const bool areNumbers = std::all_of(figures.begin(), figures.end(), [this](std::size_t i) {
      return plan_[i].state != ImportState::NotANumber;
    });
    if (figures.size() > 1 && (rules_.repeated == ImportRules::Repeated::Refuse || !areNumbers)) {
      for (const std::size_t i : figures) {
        if (plan_[i].state != ImportState::NotANumber) plan_[i].state = ImportState::Repeated;
      }
      return;
    }
    if (!areNumbers) return;
    ImportedFigure& first = plan_[figures.front()];
    double number = 0;
    for (const std::size_t i : figures) number = Val(NumberText(number + TypedNumber(plan_[i].text)));
    Decide(first, number);
    for (std::size_t i = 1; i < figures.size(); ++i) {
      ImportedFigure& other = plan_[figures[i]];
      other.state = ComesIn(first.state) ? ImportState::Summed : first.state;
      other.sumRow = first.fileRow;
    }
  }

  /// Decides on the one number for a cell.
  void Decide(ImportedFigure& figure, double number) const {
    const bool counted = !figure.before.empty();
    if (counted && rules_.counted == ImportRules::Counted::Add) {
      number += Val(figure.before);
    } else if (counted && NumberText(number) == NumberText(Val(figure.before))) {
      figure.state = ImportState::Same;
      return;
    } else if (counted && rules_.counted == ImportRules::Counted::Leave) {
      figure.state = ImportState::Left;
      return;
    }
    figure.state = ImportState::ComesIn;
    if (IsRefusedQuantity(number)) {
      figure.state = ImportState::Refused;
      return;
    }
    if (number > kMaxQuantityWithoutWarning) figure.state = ImportState::Large;
    figure.after = NumberText(number);
  }

  struct RowsOfBarcode {
    std::size_t all = 0;
    std::size_t seen = 0;
  };

  const FileTable& table_;
  const ImportColumns& columns_;
  const ImportRules& rules_;
  const Grid& lines_;
  LinesByKey byBarcode_;
  LinesByKey byCode_;
  std::unordered_map<std::string, RowsOfBarcode> rowsOfBarcode_;
  std::map<std::pair<int, int>, std::vector<std::size_t>> cells_;  ///< the figures of each cell
  std::vector<ImportedFigure> plan_;
};

}  // namespace

bool ComesIn(ImportState state) { return state == ImportState::ComesIn || state == ImportState::Large; }

bool IsProblem(ImportState state) {
  return !ComesIn(state) && state != ImportState::Same && state != ImportState::Summed;
}

std::string StateText(const ImportedFigure& figure) {
  switch (figure.state) {
    case ImportState::ComesIn:
      return figure.before.empty() ? "نوشته مي\u200cشود" : "جاي عدد پيشين را مي\u200cگيرد";
    case ImportState::Large:
      return "نوشته مي\u200cشود، ولي از 1,000,000,000 بيشتر است";
    case ImportState::Same:
      return "همين عدد در سطر هست";
    case ImportState::Summed:
      return "با سطر " + std::to_string(figure.sumRow) + " پرونده جمع شد";
    case ImportState::Left:
      return "سطر شمارش دارد و دست نمي\u200cخورد";
    case ImportState::Repeated:
      return "در پرونده تكراري است";
    case ImportState::NotANumber:
      return "عدد نيست";
    case ImportState::Refused:
      return "پذيرفته نمي\u200cشود: عدد منفي است";
    case ImportState::NoKey:
      return "باركد و كد ندارد";
    case ImportState::NoSuchLine:
      return "هيچ سطري اين باركد يا كد را ندارد";
    case ImportState::SeveralLines:
      return "چند سطر اين باركد يا كد را دارند";
  }
  return {};
}

std::vector<ImportedFigure> PlanImport(const FileTable& table, const ImportColumns& columns,
                                       const ImportRules& rules, const Grid& lines) {
  return Planner(table, columns, rules, lines).Plan();
}

ImportOutcome ApplyImport(const std::vector<ImportedFigure>& plan, Grid& lines) {
  ImportOutcome outcome;
  const int row = lines.Row();
  const int col = lines.Col();
  {
    const GridRedrawOff redrawOff(lines);
    const BatchEdit batch(lines);
    for (const ImportedFigure& figure : plan) {
      if (!ComesIn(figure.state)) continue;
      const bool isItsLine =
          figure.line < lines.Rows() && lines.TextMatrix(figure.line, LineColumn::Barcode) == figure.barcode;
      const bool stored = isItsLine && lines.UserEdit(figure.line, figure.col, figure.after);
      ++(stored ? outcome.stored : outcome.refused);
    }
    lines.UserMoveTo(row, col);
  }
  return outcome;
}

}  // namespace koru
