#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The alignment of a cell's text; right and left are those of the reader.
enum class ReportAlign { Right, Center, Left };

/// A part of a cell's text: literal text, or the name of a value (a column of the query, a formula, or one of
/// row, count, page, pages, "sum <column>" and "rank <column>").
struct ReportPiece {
  bool isValue = false;
  std::string text;
};

/// A cell of a band. Lengths are millimetres, font sizes points.
struct ReportCell {
  int sourceLine = 0;  ///< its line in the template, for error messages
  double width = 0;
  std::vector<ReportPiece> pieces;
  ReportAlign align = ReportAlign::Right;
  double fontSize = 0;  ///< 0: the template's font size
  bool bold = false;
  bool boxed = false;           ///< has a frame
  bool shaded = false;          ///< has a grey background
  bool ruled = false;           ///< has a line under it
  bool code = false;            ///< shown from left to right with unchanged digits
  std::optional<int> decimals;  ///< values are numbers: grouped, with at most this number of decimals
};

struct ReportLine {
  double height = 0;
  std::vector<ReportCell> cells;  ///< from right to left
};

/// Lines that are printed together; a page break never splits a band.
struct ReportBand {
  std::vector<ReportLine> lines;
  [[nodiscard]] double Height() const;
};

enum class ReportBandKind {
  Title,    ///< once, at the top of the first page
  Header,   ///< on every page, above the rows
  Row,      ///< once for each row
  Empty,    ///< in place of the rows when there are none
  Summary,  ///< once, after the last row
  Footer    ///< at the bottom of every page
};
inline constexpr std::size_t kReportBandKinds = 6;

/// The condition for printing a row. NULL counts as 0.
struct ReportRowCondition {
  enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual };
  int sourceLine = 0;
  std::string column;
  Operator comparison = Operator::Equal;
  double number = 0;
};

/// A parsed report file. docs/reports.md describes the syntax.
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
  ReportCell name;  ///< the title of the report; no pieces if the file has none
  std::optional<ReportRowCondition> rows;
  std::array<ReportBand, kReportBandKinds> bands;

  [[nodiscard]] const ReportBand& Band(ReportBandKind kind) const {
    return bands[static_cast<std::size_t>(kind)];
  }
  [[nodiscard]] double ContentWidth() const { return pageWidth - marginRight - marginLeft; }
  [[nodiscard]] double ContentHeight() const { return pageHeight - marginTop - marginBottom; }
};

/// Parses the text of a report file; `file` is its name for error messages. Throws InputError with file, line
/// and reason.
[[nodiscard]] ReportTemplate ParseReportTemplate(std::string_view text, const std::string& file);

/// Throws InputError for an error in a template or its values. Line 0 refers to the whole file.
[[noreturn]] void RefuseReport(const std::string& file, int line, const std::string& reason);

}  // namespace koru
