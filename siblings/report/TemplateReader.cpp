#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "siblings/report/ReportTemplate.h"
#include "siblings/report/TemplateWords.h"

namespace koru {
namespace {

constexpr double kTolerance = 0.01;  ///< for lengths, in mm
constexpr double kMaxLength = 2000;
constexpr int kMaxDecimals = 9;

constexpr std::array<std::pair<std::string_view, ReportBandKind>, kReportBandKinds> kBandNames = {
    {{"title", ReportBandKind::Title},
     {"header", ReportBandKind::Header},
     {"row", ReportBandKind::Row},
     {"empty", ReportBandKind::Empty},
     {"summary", ReportBandKind::Summary},
     {"footer", ReportBandKind::Footer}}};

struct Paper {
  std::string_view name;
  double width;
  double height;
};
constexpr std::array<Paper, 4> kPapers = {
    {{"A3", 297, 420}, {"A4", 210, 297}, {"A5", 148, 210}, {"letter", 215.9, 279.4}}};

using Operator = ReportRowCondition::Operator;
constexpr std::array<std::pair<std::string_view, Operator>, 6> kOperators = {
    {{"=", Operator::Equal},
     {"<>", Operator::NotEqual},
     {"<", Operator::Less},
     {">", Operator::Greater},
     {"<=", Operator::LessOrEqual},
     {">=", Operator::GreaterOrEqual}}};

/// Parses a report file line by line.
class TemplateReader {
 public:
  explicit TemplateReader(const std::string& file) { report_.file = file; }

  void ReadLine(std::string_view line) {
    ++number_;
    words_ = TemplateWords(line, report_.file, number_);
    next_ = 0;
    if (words_.empty()) return;
    Statement(Word("دستور"));
    if (next_ < words_.size()) Refuse("«" + words_[next_].text + "» زيادي است");
  }

  ReportTemplate Finish() {
    number_ = 0;
    CloseLine();
    if (report_.Band(ReportBandKind::Row).lines.empty()) Refuse("بخش row ندارد");
    return std::move(report_);
  }

 private:
  [[noreturn]] void Refuse(const std::string& reason) const { RefuseReport(report_.file, number_, reason); }

  void Statement(const std::string& name) {
    if (name == "page") return Page();
    if (name == "margins") return Margins();
    if (name == "font") return Font();
    if (name == "digits") return Digits();
    if (name == "rows") return Rows();
    if (name == "name") return Name();
    if (name == "band") return Band();
    if (name == "line") return Line();
    if (name == "cell") return Cell();
    Refuse("دستور «" + name + "» ناشناخته است");
  }

  // The words of the current line.

  [[nodiscard]] bool More() const { return next_ < words_.size(); }
  std::string Word(const std::string& meaning) {
    if (!More() || words_[next_].quoted) Refuse(meaning + " نوشته نشده است");
    return words_[next_++].text;
  }
  double Number(const std::string& meaning) {
    const std::string word = Word(meaning);
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number)) {
      Refuse("«" + word + "» به جاي " + meaning + " عدد نيست");
    }
    return number;
  }
  double Length(const std::string& meaning) {
    const double length = Number(meaning);
    if (length < 0 || length > kMaxLength) Refuse(meaning + " بيرون از اندازه است");
    return length;
  }
  /// Looks the next word up in a table.
  template <class Table>
  auto Choice(const std::string& meaning, const Table& table) {
    const std::string word = Word(meaning);
    for (const auto& [name, value] : table) {
      if (name == word) return value;
    }
    Refuse("«" + word + "» به جاي " + meaning + " شناخته نيست");
  }

  // Statements about the page.

  void Page() {
    const std::string name = Word("اندازة كاغذ");
    const auto* const paper =
        std::find_if(kPapers.begin(), kPapers.end(), [&](const Paper& known) { return known.name == name; });
    if (paper == kPapers.end()) Refuse("كاغذ «" + name + "» شناخته نيست");
    const std::array<std::pair<std::string_view, bool>, 2> directions = {
        {{"portrait", false}, {"landscape", true}}};
    report_.landscape = More() && Choice("جهت كاغذ", directions);
    report_.pageWidth = report_.landscape ? paper->height : paper->width;
    report_.pageHeight = report_.landscape ? paper->width : paper->height;
  }
  void Margins() {
    for (double* margin :
         {&report_.marginTop, &report_.marginRight, &report_.marginBottom, &report_.marginLeft}) {
      *margin = Length("حاشيه");
    }
    if (report_.ContentWidth() <= 0 || report_.ContentHeight() <= 0) Refuse("ميان حاشيه ها جايي نمي ماند");
  }
  double FontSize() {
    const double size = Number("اندازة قلم");
    if (size < 4 || size > 72) Refuse("اندازة قلم بايد ميان 4 و 72 باشد");
    return size;
  }
  void Font() {
    report_.fontSize = FontSize();
    if (More()) report_.fontFamily = words_[next_++].text;
  }
  void Digits() {
    const std::array<std::pair<std::string_view, bool>, 2> kinds = {{{"persian", true}, {"latin", false}}};
    report_.persianDigits = Choice("رقم", kinds);
  }
  void Rows() {
    ReportRowCondition condition;
    condition.sourceLine = number_;
    condition.column = Word("نام ستون");
    condition.comparison = Choice("مقايسه", kOperators);
    condition.number = Number("عدد شرط");
    report_.rows = condition;
  }

  void Name() {
    if (!More() || !words_[next_].quoted) Refuse("نام گزارش نوشته نشده است");
    report_.name.sourceLine = number_;
    report_.name.pieces = Pieces(words_[next_++].text);
    report_.name.code = true;  // file names contain no direction marks and keep their digits
  }

  // Statements about bands.

  void Band() {
    CloseLine();
    const ReportBandKind kind = Choice("نام بخش", kBandNames);
    band_ = &report_.bands[static_cast<std::size_t>(kind)];
    if (!band_->lines.empty()) Refuse("اين بخش پيش از اين آمده است");
  }
  void Line() {
    if (band_ == nullptr) Refuse("سطر بيرون از بخش است");
    CloseLine();
    ReportLine line;
    line.height = Length("بلندي سطر");
    if (line.height <= 0) Refuse("بلندي سطر صفر است");
    band_->lines.push_back(line);
    lineNumber_ = number_;
    inLine_ = true;
  }
  void Cell() {
    if (!inLine_) Refuse("خانه بيرون از سطر است");
    ReportCell cell;
    cell.sourceLine = number_;
    cell.width = CellWidth();
    if (More() && words_[next_].quoted) cell.pieces = Pieces(words_[next_++].text);
    while (More()) Option(cell, Word("ويژگي خانه"));
    band_->lines.back().cells.push_back(std::move(cell));
  }
  /// `*` takes the remaining width of the line.
  double CellWidth() {
    if (!More() || words_[next_].text != "*") return Length("پهناي خانه");
    ++next_;
    const auto& cells = band_->lines.back().cells;
    if (std::any_of(cells.begin(), cells.end(), [](const ReportCell& other) { return other.width < 0; })) {
      Refuse("در هر سطر تنها يك * مي تواند باشد");
    }
    return -1;
  }
  void Option(ReportCell& cell, const std::string& name) {
    if (name == "right")
      cell.align = ReportAlign::Right;
    else if (name == "center")
      cell.align = ReportAlign::Center;
    else if (name == "left")
      cell.align = ReportAlign::Left;
    else if (name == "bold")
      cell.bold = true;
    else if (name == "box")
      cell.boxed = true;
    else if (name == "shade")
      cell.shaded = true;
    else if (name == "rule")
      cell.ruled = true;
    else if (name == "code")
      cell.code = true;
    else if (name == "size")
      cell.fontSize = FontSize();
    else if (name == "number")
      cell.decimals = Decimals();
    else
      Refuse("ويژگي «" + name + "» ناشناخته است");
  }
  int Decimals() {
    const double decimals = Number("شمار رقمهاي اعشار");
    if (decimals < 0 || decimals > kMaxDecimals || decimals != std::floor(decimals)) {
      Refuse("شمار رقمهاي اعشار بايد ميان 0 و 9 باشد");
    }
    return static_cast<int>(decimals);
  }
  /// Splits "a {b} c" into literal text and names of values.
  std::vector<ReportPiece> Pieces(std::string_view text) {
    std::vector<ReportPiece> pieces;
    while (!text.empty()) {
      const std::size_t open = std::min(text.find('{'), text.size());
      if (open > 0) pieces.push_back({false, std::string(text.substr(0, open))});
      text.remove_prefix(open);
      if (text.empty()) break;
      const std::size_t close = text.find('}');
      if (close == std::string_view::npos || close == 1) Refuse("در متن، { بدون نام يا } است");
      pieces.push_back({true, std::string(text.substr(1, close - 1))});
      text.remove_prefix(close + 1);
    }
    return pieces;
  }

  /// Assigns the remaining width to the cell with width `*`; refuses a line wider than the page.
  void CloseLine() {
    if (!inLine_) return;
    inLine_ = false;
    double used = 0;
    ReportCell* open = nullptr;
    for (ReportCell& cell : band_->lines.back().cells) {
      if (cell.width < 0)
        open = &cell;
      else
        used += cell.width;
    }
    const double left = report_.ContentWidth() - used;
    if (left < -kTolerance) RefuseReport(report_.file, lineNumber_, "خانه هاي سطر از پهناي كاغذ بيشتر است");
    if (open != nullptr) open->width = std::max(left, 0.0);
  }

  ReportTemplate report_;
  std::vector<TemplateWord> words_;
  std::size_t next_ = 0;
  int number_ = 0;
  int lineNumber_ = 0;
  bool inLine_ = false;
  ReportBand* band_ = nullptr;
};

}  // namespace

ReportTemplate ParseReportTemplate(std::string_view text, const std::string& file) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  TemplateReader reader(file);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    reader.ReadLine(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return reader.Finish();
}

}  // namespace koru
