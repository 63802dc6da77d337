#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// Where a cell's text stands; right and left are the reader's.
enum class ReportAlign { Right, Center, Left };

/// A part of a cell's text: words of the template, or the name of a value (a column of the query, a formula,
/// or one of row, count, page, pages and "sum <column>").
struct ReportPiece {
  bool isValue = false;
  std::string text;
};

/// A cell of a band. Lengths are millimetres, font sizes points.
struct ReportCell {
  int sourceLine = 0;  ///< where the template declares it, for errors
  double width = 0;
  std::vector<ReportPiece> pieces;
  ReportAlign align = ReportAlign::Right;
  double fontSize = 0;  ///< 0: the template's
  bool bold = false;
  bool boxed = false;           ///< has a frame
  bool shaded = false;          ///< has a grey ground
  bool ruled = false;           ///< has a line under it
  bool code = false;            ///< read from left to right with the digits it has
  std::optional<int> decimals;  ///< values are numbers: grouped, with at most so many decimals
};

struct ReportLine {
  double height = 0;
  std::vector<ReportCell> cells;  ///< from right to left
};

/// Lines that are printed together and never cut by a page.
struct ReportBand {
  std::vector<ReportLine> lines;
  [[nodiscard]] double Height() const;
};

enum class ReportBandKind {
  Title,    ///< once, at the top of the first page
  Header,   ///< on every page, above the rows
  Row,      ///< once a row
  Empty,    ///< in place of rows when there are none
  Summary,  ///< once, behind the last row
  Footer    ///< at the bottom of every page
};
inline constexpr std::size_t kReportBandKinds = 6;

/// Rows for which this does not hold are not printed. A field that is NULL counts as 0.
struct ReportRowCondition {
  enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual };
  int sourceLine = 0;
  std::string column;
  Operator comparison = Operator::Equal;
  double number = 0;
};

/// A report file, read. docs/reports.md describes how one is written.
struct ReportTemplate {
  std::string file;  ///< for errors
  bool landscape = false;
  double pageWidth = 210;
  double pageHeight = 297;
  double marginTop = 10;
  double marginRight = 10;
  double marginBottom = 10;
  double marginLeft = 10;
  std::string fontFamily;  ///< empty: the program's
  double fontSize = 9;
  bool persianDigits = true;
  ReportCell name;  ///< what the report is called; no pieces where the file does not say
  std::optional<ReportRowCondition> rows;
  std::array<ReportBand, kReportBandKinds> bands;

  [[nodiscard]] const ReportBand& Band(ReportBandKind kind) const {
    return bands[static_cast<std::size_t>(kind)];
  }
  [[nodiscard]] double ContentWidth() const { return pageWidth - marginRight - marginLeft; }
  [[nodiscard]] double ContentHeight() const { return pageHeight - marginTop - marginBottom; }
};

/// Reads the text of a report file; `file` names it in errors. Throws InputError with file, line and reason.
[[nodiscard]] ReportTemplate ParseReportTemplate(std::string_view text, const std::string& file);

/// Throws the InputError of a template, or of what it asks for. Line 0: the file as a whole.
[[noreturn]] void RefuseReport(const std::string& file, int line, const std::string& reason);

}  // namespace koru
