#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "desktop/report/ReportDocument.h"
#include "platform/ports/ReportPrinter.h"
#include "platform/sql/Database.h"

namespace koru {

/// The suite's report printer on the desktop: reads a report file (docs/reports.md), runs the query over a
/// connection of its own, and opens the preview, which stays while its program works on.
class DesktopReportPrinter : public ReportPrinter {
 public:
  /// `databases` must outlive the printer. `tell` shows the person what goes wrong in a preview later on.
  DesktopReportPrinter(DatabaseConnector& databases, std::function<void(const std::string&)> tell)
      : databases_(databases), tell_(std::move(tell)) {}

  void SetReportFileName(const std::string& fileName) override { fileName_ = fileName; }
  void SetConnectionString(const std::string& text) override { connectionString_ = text; }
  void SetSQLQuery(const SqlText& query) override { query_ = query; }
  void SetFormula(int number, const std::string& formula) override { formulas_[number] = formula; }
  void Show() override;

  /// The report as Show would preview it; throws what Show throws.
  [[nodiscard]] std::unique_ptr<ReportDocument> Prepare() const;

 protected:
  /// Opens the preview.
  virtual void LetRead(std::unique_ptr<const ReportDocument> report);

 private:
  DatabaseConnector& databases_;
  std::function<void(const std::string&)> tell_;
  std::string fileName_;
  std::string connectionString_;
  SqlText query_;
  std::map<int, std::string> formulas_;
};

}  // namespace koru
