#pragma once

#include <string>
#include <string_view>

#include "platform/ports/Components.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The suite's report printer: lays out the result of a query as a report file says.
class ReportPrinter : public SiblingComponent {
 public:
  static constexpr std::string_view kClassName = "comCrystalReport.comCrystalRpt";

  /// The path of the report file; empty for none.
  virtual void SetReportFileName(const std::string& fileName) = 0;
  virtual void SetConnectionString(const std::string& connectionString) = 0;
  /// The statement whose rows are printed, in the dialect of the suite's server. The printer checks its typed
  /// spans before it sends it.
  virtual void SetSQLQuery(const SqlText& query) = 0;
  /// Sets formula `number` (from 1), written `name='text'`: a named text that the report file may show.
  /// Replaces an earlier formula with the same number.
  virtual void SetFormula(int number, const std::string& formula) = 0;
  /// Sets a sentence that the preview shows above the pages; empty for none. A printer that has no place for
  /// it does nothing.
  virtual void SetNote(const std::string& /*note*/) {}
  /// Shows the report on the screen. Throws InputError when the report file is unusable, and DatabaseError
  /// when the query fails or its typed spans are not valid; in the latter case nothing is sent.
  virtual void Show() = 0;
};

}  // namespace koru
