#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/report/ReportLayout.h"
#include "desktop/report/ReportTemplate.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// Told how many of the pages are done; false ends the work.
using ReportProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// The texts that a report file may show by name, besides the columns of its query.
using ReportFormulas = std::map<std::string, std::string, std::less<>>;

/// A report that is ready to be painted: its template, the rows that are printed, and where they stand.
class ReportDocument {
 public:
  /// Throws InputError when the template shows a value that neither the records nor the formulas have, or has
  /// no room for its rows.
  ReportDocument(ReportTemplate report, Recordset records, ReportFormulas formulas);

  [[nodiscard]] const ReportTemplate& Template() const { return report_; }
  /// What the report is called, with the values of the query's first record; empty when its file does not
  /// say.
  [[nodiscard]] std::string Name() const;
  [[nodiscard]] const std::vector<ReportPage>& Pages() const { return pages_; }
  /// The rows that the template's condition lets through.
  [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }

  /// What a cell shows in a band of a page (from 0). In bands other than rows, columns are those of the
  /// query's first record. Each value stands between direction marks (U+2068, U+2069), so that what it
  /// consists of does not move the words around it; a cell that is a code has none.
  [[nodiscard]] std::string CellText(const ReportCell& cell, const PlacedBand& band, std::size_t page) const;

 private:
  enum class ValueKind { Column, Sum, Formula, Row, Count, Page, Pages };
  struct ValueSource {
    ValueKind kind = ValueKind::Column;
    std::size_t column = 0;
    double sum = 0;
  };

  void ChooseRows();
  void ResolveValues();
  void ResolveValuesOf(const ReportCell& cell);
  [[nodiscard]] ValueSource Resolve(const ReportCell& cell, const std::string& name) const;
  [[nodiscard]] std::size_t ColumnOf(std::string_view name, int sourceLine) const;
  [[nodiscard]] double SumOf(std::size_t column) const;
  [[nodiscard]] std::string ValueText(const ReportCell& cell, const std::string& name, const PlacedBand& band,
                                      std::size_t page) const;
  [[nodiscard]] std::string FieldText(const ReportCell& cell, std::size_t column,
                                      const PlacedBand& band) const;
  [[nodiscard]] std::string NumberOf(const ReportCell& cell, double number) const;

  ReportTemplate report_;
  Recordset records_;
  ReportFormulas formulas_;
  std::vector<std::size_t> rows_;  ///< the records that are printed
  std::map<std::string, ValueSource, std::less<>> values_;
  std::vector<ReportPage> pages_;
};

}  // namespace koru
