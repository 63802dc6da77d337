#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sql/Recordset.h"
#include "siblings/report/ReportLayout.h"
#include "siblings/report/ReportTemplate.h"

namespace koru {

/// Called with the number of finished pages; returns false to cancel.
using ReportProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// The named texts that a report file may show in addition to the columns of its query.
using ReportFormulas = std::map<std::string, std::string, std::less<>>;

/// A report ready for painting: its template, the printed rows and their positions.
class ReportDocument {
 public:
  /// Throws InputError when the template refers to a value that is neither a column nor a formula, or has no
  /// room for its rows.
  ReportDocument(ReportTemplate report, Recordset records, ReportFormulas formulas);

  [[nodiscard]] const ReportTemplate& Template() const { return report_; }
  /// The title of the report, with values from the query's first record; empty if the file has no `name`.
  [[nodiscard]] std::string Name() const;
  /// A sentence for the preview alone; empty if there is none.
  void SetNote(std::string note) { note_ = std::move(note); }
  [[nodiscard]] const std::string& Note() const { return note_; }
  [[nodiscard]] const std::vector<ReportPage>& Pages() const { return pages_; }

  /// The text of a cell in a band of a page (from 0). In bands other than rows, columns refer to the query's
  /// first record. Each value is enclosed in direction marks (U+2068, U+2069), so that it does not reorder
  /// the words around it; a code cell has none.
  [[nodiscard]] std::string CellText(const ReportCell& cell, const PlacedBand& band, std::size_t page) const;

 private:
  enum class ValueKind { Column, Sum, Rank, Formula, Row, Count, Page, Pages };
  struct ValueSource {
    ValueKind kind = ValueKind::Column;
    std::size_t column = 0;
    double sum = 0;
    std::vector<std::size_t> ranks = {};  ///< of all records, from 1
  };

  void ChooseRows();
  void ResolveValues();
  void ResolveValuesOf(const ReportCell& cell);
  [[nodiscard]] ValueSource Resolve(const ReportCell& cell, const std::string& name) const;
  [[nodiscard]] std::size_t ColumnOf(std::string_view name, int sourceLine) const;
  [[nodiscard]] double SumOf(std::size_t column) const;
  [[nodiscard]] std::vector<std::size_t> RanksBy(std::size_t column) const;
  [[nodiscard]] std::string ValueText(const ReportCell& cell, const std::string& name, const PlacedBand& band,
                                      std::size_t page) const;
  [[nodiscard]] std::string FieldText(const ReportCell& cell, std::size_t column,
                                      const PlacedBand& band) const;
  [[nodiscard]] std::string NumberOf(const ReportCell& cell, double number) const;

  ReportTemplate report_;
  Recordset records_;
  ReportFormulas formulas_;
  std::string note_;
  std::vector<std::size_t> rows_;  ///< indexes of the printed records
  std::map<std::string, ValueSource, std::less<>> values_;
  std::vector<ReportPage> pages_;
};

}  // namespace koru
