#include "lines/ImportColumns.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "platform/text/PersianText.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

constexpr std::size_t kMaxTitleRow = 10;

enum class Meaning { Barcode, Code, FirstCount, SecondCount, ThirdCount, AcceptedCount, SomeCount };

struct Title {
  Meaning meaning;
  const char* text;
};
constexpr Title kTitles[] = {
    {Meaning::Barcode, "کد ميله\u200cاي"},
    {Meaning::Barcode, "باركد"},
    {Meaning::Barcode, "باركد كالا"},
    {Meaning::Barcode, "barcode"},
    {Meaning::Code, "كد"},
    {Meaning::Code, "كد كالا"},
    {Meaning::Code, "code"},
    {Meaning::Code, "goodcode"},
    {Meaning::FirstCount, "شمارش اول"},
    {Meaning::FirstCount, "شمارش 1"},
    {Meaning::FirstCount, "firstcount"},
    {Meaning::FirstCount, "count1"},
    {Meaning::SecondCount, "شمارش دوم"},
    {Meaning::SecondCount, "شمارش 2"},
    {Meaning::SecondCount, "secondcount"},
    {Meaning::SecondCount, "count2"},
    {Meaning::ThirdCount, "شمارش سوم"},
    {Meaning::ThirdCount, "شمارش 3"},
    {Meaning::ThirdCount, "thirdcount"},
    {Meaning::ThirdCount, "count3"},
    {Meaning::AcceptedCount, "شمارش مورد قبول"},
    {Meaning::AcceptedCount, "مورد قبول"},
    {Meaning::AcceptedCount, "شمارش نهايي"},
    {Meaning::AcceptedCount, "acceptedcount"},
    {Meaning::SomeCount, "شمارش"},
    {Meaning::SomeCount, "تعداد"},
    {Meaning::SomeCount, "مقدار"},
    {Meaning::SomeCount, "تعداد شمارش"},
    {Meaning::SomeCount, "count"},
    {Meaning::SomeCount, "quantity"},
    {Meaning::SomeCount, "qty"},
};

bool IsFiller(char32_t character) {
  constexpr std::u32string_view kFillers = U" \t\n\r_-.:*()\u00A0\u200E\u200F";
  constexpr char32_t kTatweel = 0x0640;
  return character == kTatweel || kFillers.find(character) != std::u32string_view::npos;
}

/// A title without what people write differently.
std::string Folded(std::string_view title) {
  const std::string folded = FoldPersian(title);
  std::string bare;
  for (std::size_t at = 0; at < folded.size();) {
    const char32_t character = NextCharacter(folded, at);
    if (!IsFiller(character)) AppendCharacter(bare, character);
  }
  return bare;
}

const std::map<std::string, Meaning>& Titles() {
  static const std::map<std::string, Meaning> titles = [] {
    std::map<std::string, Meaning> all;
    for (const auto& [meaning, text] : kTitles) all.emplace(Folded(text), meaning);
    return all;
  }();
  return titles;
}

void TakeIfFree(int& column, int found, int& taken) {
  if (column != ImportColumns::kNone) return;
  column = found;
  ++taken;
}

/// The columns that one row names; returns their number.
int ReadTitles(const FileTable::Row& row, ImportColumns& columns) {
  constexpr auto kFirst = static_cast<std::size_t>(Meaning::FirstCount);
  int named = 0;
  int someCount = ImportColumns::kNone;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const auto found = Titles().find(Folded(row.cells[i]));
    if (found == Titles().end()) continue;
    const int column = static_cast<int>(i);
    switch (found->second) {
      case Meaning::Barcode:
        TakeIfFree(columns.barcode, column, named);
        break;
      case Meaning::Code:
        TakeIfFree(columns.code, column, named);
        break;
      case Meaning::SomeCount:
        TakeIfFree(someCount, column, named);
        break;
      default:
        TakeIfFree(columns.counts.at(static_cast<std::size_t>(found->second) - kFirst), column, named);
    }
  }
  if (columns.counts[0] == ImportColumns::kNone) columns.counts[0] = someCount;
  return named;
}

bool HasNumber(const FileTable::Row& row) {
  return std::any_of(row.cells.begin(), row.cells.end(),
                     [](const std::string& cell) { return IsTypedNumber(cell); });
}

/// As spreadsheets call their columns: A to Z, then AA.
std::string Letters(std::size_t column) {
  constexpr std::size_t kLetters = 26;
  std::string letters;
  for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / kLetters)
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
  return letters;
}

/// A title in one line, without the blanks and marks around it.
std::string Plain(std::string_view title) {
  std::string plain;
  for (std::size_t at = 0; at < title.size();) {
    const char32_t character = NextCharacter(title, at);
    AppendCharacter(plain, character < U' ' || character == 0x00A0 ? U' ' : character);
  }
  return std::string(Trim(plain));
}

}  // namespace

const std::string& CellOf(const FileTable::Row& row, int column) {
  static const std::string empty;
  const auto at = static_cast<std::size_t>(column);
  return column < 0 || at >= row.cells.size() ? empty : row.cells[at];
}

ImportColumns FindColumns(const FileTable& table) {
  ImportColumns best;
  int most = 0;
  for (std::size_t row = 0; row < std::min(kMaxTitleRow, table.rows.size()); ++row) {
    ImportColumns columns;
    columns.firstRow = row + 1;
    const int named = ReadTitles(table.rows[row], columns);
    if (named <= most) continue;
    most = named;
    best = columns;
  }
  if (most == 0 && !table.rows.empty() && !HasNumber(table.rows.front())) best.firstRow = 1;
  return best;
}

std::vector<std::string> ColumnNames(const FileTable& table, std::size_t firstRow) {
  std::size_t width = 0;
  for (const FileTable::Row& row : table.rows) width = std::max(width, row.cells.size());
  std::vector<std::string> names;
  for (std::size_t i = 0; i < width; ++i)
    names.push_back(firstRow == 0 ? std::string()
                                  : Plain(CellOf(table.rows[firstRow - 1], static_cast<int>(i))));
  const std::vector<std::string> titles = names;
  for (std::size_t i = 0; i < width; ++i) {
    if (titles[i].empty()) {
      names[i] = "ستون " + Letters(i);
    } else if (std::count(titles.begin(), titles.end(), titles[i]) > 1) {
      names[i] += " (" + Letters(i) + ")";
    }
  }
  return names;
}

}  // namespace koru
