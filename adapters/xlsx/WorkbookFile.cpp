#include "adapters/xlsx/WorkbookFile.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <string_view>

#include "adapters/xlsx/WorkbookCheck.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr const char* kTextFormat = "@";
constexpr std::size_t kMinWidth = 6;  ///< in characters
constexpr std::size_t kMaxWidth = 60;
constexpr lxw_color_t kHeaderColor = 0xDCE3ED;

/// Whether the library writes `c` by its number, as _xHHHH_.
bool IsWrittenByNumber(char c) {
  constexpr char kFirstPrintable = ' ';
  return c >= 0 && c < kFirstPrintable && c != '\t' && c != '\n';
}

/// Whether the text at `at` is read as a character by its number: _xHHHH_. The last underscore may be that of
/// a control character, which the library writes by its number.
bool IsEscape(std::string_view text, std::size_t at) {
  constexpr std::size_t kLast = 6;
  if (text.size() - at <= kLast || text.substr(at, 2) != "_x") return false;
  if (text[at + kLast] != '_' && !IsWrittenByNumber(text[at + kLast])) return false;
  return text.substr(at + 2, 4).find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

/// Replaces characters that a workbook cannot contain with U+FFFD. A typed _x0041_ would be read as the
/// letter A, so its first underscore is written by its number.
std::string CleanText(std::string_view text) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (IsEscape(text, at)) clean += "_x005F";
    const char32_t character = NextCharacter(text, at);
    const bool writable = character != 0 && character != 0xFFFE && character != 0xFFFF;
    AppendCharacter(clean, writable ? character : kReplacement);
  }
  return clean;
}

/// Keeps the first error.
class Outcome {
 public:
  void Note(lxw_error error) {
    if (first_ == LXW_NO_ERROR) first_ = error;
  }
  [[nodiscard]] bool Failed() const { return first_ != LXW_NO_ERROR; }
  [[nodiscard]] std::string Reason() const { return Failed() ? lxw_strerror(first_) : std::string(); }

 private:
  lxw_error first_ = LXW_NO_ERROR;
};

lxw_format* CellFormat(lxw_workbook* book) {
  lxw_format* const format = workbook_add_format(book);
  format_set_num_format(format, kTextFormat);  // values typed over a cell stay texts as well
  return format;
}

lxw_format* HeaderFormat(lxw_workbook* book) {
  lxw_format* const format = CellFormat(book);
  format_set_bold(format);
  format_set_align(format, LXW_ALIGN_CENTER);
  format_set_bg_color(format, kHeaderColor);
  format_set_border(format, LXW_BORDER_THIN);
  return format;
}

void SetWidths(lxw_worksheet* sheet, const SheetTexts& texts, Outcome& outcome) {
  std::vector<std::size_t> widths;
  for (const auto& row : texts) {
    if (row.size() > widths.size()) widths.resize(row.size(), kMinWidth);
    for (std::size_t col = 0; col < row.size(); ++col) {
      widths[col] = std::max(widths[col], std::min(kMaxWidth, Utf16Length(row[col]) + 2));
    }
  }
  for (std::size_t col = 0; col < widths.size(); ++col) {
    const auto place = static_cast<lxw_col_t>(col);
    outcome.Note(worksheet_set_column(sheet, place, place, static_cast<double>(widths[col]), nullptr));
  }
}

std::size_t TextCount(const SheetTexts& texts) {
  std::size_t count = 0;
  for (const auto& row : texts) {
    count += static_cast<std::size_t>(
        std::count_if(row.begin(), row.end(), [](const std::string& text) { return !text.empty(); }));
  }
  return count;
}

void WriteTexts(lxw_workbook* book, lxw_worksheet* sheet, const SheetTexts& texts, Outcome& outcome) {
  lxw_format* const header = HeaderFormat(book);
  lxw_format* const cell = CellFormat(book);
  for (std::size_t row = 0; row < texts.size() && !outcome.Failed(); ++row) {
    for (std::size_t col = 0; col < texts[row].size(); ++col) {
      if (texts[row][col].empty()) continue;
      outcome.Note(worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(col),
                                          CleanText(texts[row][col]).c_str(), row == 0 ? header : cell));
    }
  }
}

}  // namespace

std::string WriteWorkbook(const std::string& path, const std::string& sheetName, const SheetTexts& texts) {
  // The library's constant-memory mode keeps one row at a time, which requires writing row by row.
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const book = workbook_new_opt(path.c_str(), &options);
  if (book == nullptr) return lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED);
  Outcome outcome;
  lxw_worksheet* const sheet = workbook_add_worksheet(book, sheetName.c_str());
  if (sheet == nullptr) {
    outcome.Note(LXW_ERROR_CREATING_TMPFILE);
  } else {
    worksheet_right_to_left(sheet);
    worksheet_freeze_panes(sheet, 1, 0);
    SetWidths(sheet, texts, outcome);
    WriteTexts(book, sheet, texts, outcome);
    outcome.Note(worksheet_ignore_errors(sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576"));
  }
  outcome.Note(workbook_close(book));
  if (!outcome.Failed() && !IsWholeWorkbook(path, TextCount(texts))) return "شايد ديسك جا ندارد";
  return outcome.Reason();
}

}  // namespace koru
