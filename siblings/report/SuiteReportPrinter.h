#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/ports/ReportPrinter.h"
#include "platform/sql/Database.h"
#include "siblings/report/ReportDocument.h"

namespace koru {

/// Shows a report and returns at once; the report stays open.
using ShowReport = std::function<void(std::unique_ptr<const ReportDocument> report)>;

/// The suite's report printer, whose preview is a function. It reads a report file (docs/reports.md), runs
/// the query over a connection of its own and lays out the pages.
class SuiteReportPrinter : public ReportPrinter {
 public:
  /// `databases` must outlive the printer. `dataFolder` is the program's own folder (ReadReportFile).
  SuiteReportPrinter(DatabaseConnector& databases, std::filesystem::path dataFolder, ShowReport show)
      : databases_(databases), dataFolder_(std::move(dataFolder)), show_(std::move(show)) {}

  void SetReportFileName(const std::string& fileName) override { fileName_ = fileName; }
  void SetConnectionString(const std::string& text) override { connectionString_ = text; }
  void SetSQLQuery(const SqlText& query) override { query_ = query; }
  void SetFormula(int number, const std::string& formula) override { formulas_[number] = formula; }
  void SetNote(const std::string& note) override { note_ = note; }
  void Show() override { show_(Prepare()); }

  /// The report that Show passes on; throws what Show throws.
  [[nodiscard]] std::unique_ptr<ReportDocument> Prepare() const;

 private:
  DatabaseConnector& databases_;
  std::filesystem::path dataFolder_;
  ShowReport show_;
  std::string fileName_;
  std::string connectionString_;
  SqlText query_;
  std::map<int, std::string> formulas_;
  std::string note_;
};

}  // namespace koru
