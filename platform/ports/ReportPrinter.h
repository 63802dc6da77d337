#pragma once

#include <string>
#include <string_view>

#include "platform/ports/Components.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The suite's report printer: shows what a query returns on paper, laid out by a report file.
class ReportPrinter : public SiblingComponent {
 public:
  static constexpr std::string_view kClassName = "comCrystalReport.comCrystalRpt";

  /// The report file; empty for none.
  virtual void SetReportFileName(const std::string& fileName) = 0;
  virtual void SetConnectionString(const std::string& connectionString) = 0;
  /// The statement whose rows are printed, in the suite's server's dialect. Whoever sends it checks its typed
  /// spans first.
  virtual void SetSQLQuery(const SqlText& query) = 0;
  /// A named text that the report file may show, written `name='text'`. Formulas are numbered from 1; a
  /// number that is set again replaces the formula before.
  virtual void SetFormula(int number, const std::string& formula) = 0;
  /// Shows the report on the screen. Throws InputError when the report file cannot be used and DatabaseError
  /// when the query fails or what was typed into it has left its literal; nothing is sent then.
  virtual void Show() = 0;
};

}  // namespace koru
