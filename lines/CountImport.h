#pragma once

#include <string>
#include <vector>

#include "lines/ImportColumns.h"
#include "platform/controls/Grid.h"
#include "platform/ports/TableFiles.h"

namespace koru {

/// What a user decides about figures that cannot simply come in.
struct ImportRules {
  /// Several figures of the file for one cell.
  enum class Repeated { Refuse, Sum };
  /// A figure for a cell that has another one.
  enum class Counted { Leave, Replace, Add };

  Repeated repeated = Repeated::Refuse;
  Counted counted = Counted::Leave;
};

/// What becomes of a figure of the file.
enum class ImportState {
  ComesIn,
  Large,         ///< comes in, and the form warns: it is larger than kMaxQuantityWithoutWarning
  Same,          ///< the cell has this figure already
  Summed,        ///< comes in as a part of the figure of an earlier row
  Left,          ///< the cell has another figure, which stays
  Repeated,      ///< the file has several figures for the cell
  NotANumber,    ///< the text is no number
  Refused,       ///< the form refuses it: it is negative
  NoKey,         ///< the row has neither barcode nor code
  NoSuchLine,    ///< no line has this barcode or code
  SeveralLines,  ///< several lines have it
};

/// One figure of the file.
struct ImportedFigure {
  int fileRow = 0;
  int sumRow = 0;    ///< Summed: the row of the file that the figure is added to
  std::string key;   ///< the barcode of the file, or the code where it has none
  std::string text;  ///< the figure as the file has it
  int line = 0;      ///< the row of the grid; 0: none
  int col = 0;       ///< the column of the grid
  std::string barcode;
  std::string before;  ///< the figure in the grid
  std::string after;   ///< the figure to be entered; only for ComesIn and Large
  ImportState state = ImportState::ComesIn;
};

[[nodiscard]] bool ComesIn(ImportState state);
/// Whether the user must be shown that the figure does not come in: it is neither in the grid nor in a sum.
[[nodiscard]] bool IsProblem(ImportState state);
/// The state for the user.
[[nodiscard]] std::string StateText(const ImportedFigure& figure);

/// What would come in: all figures of the table in the order of its rows. Rows without a figure are left out,
/// and cells of columns that cannot be typed into. The barcode of a row decides its line, or its code if the
/// barcode is empty, regardless of letter forms and the kind of digits. If several lines have the barcode,
/// and exactly as many rows of the table, they belong together in their order.
[[nodiscard]] std::vector<ImportedFigure> PlanImport(const FileTable& table, const ImportColumns& columns,
                                                     const ImportRules& rules, const Grid& lines);

/// How many figures were entered, and how many were not: the form refused them, or their line is gone.
struct ImportOutcome {
  int stored = 0;
  int refused = 0;
};

/// Enters what comes in, each figure as if it were typed; sums are calculated once. The current cell stays.
ImportOutcome ApplyImport(const std::vector<ImportedFigure>& plan, Grid& lines);

}  // namespace koru
