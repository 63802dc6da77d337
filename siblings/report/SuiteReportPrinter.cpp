#include "siblings/report/SuiteReportPrinter.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "reports/BuiltInReports.h"

namespace koru {
namespace {

[[noreturn]] void RefuseUnread(const std::string& path, std::error_code error) {
  RefuseReport(path, 0, "پرونده خوانده نشد (" + error.message() + ")");
}

std::string ReadWhole(const std::string& path) {
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown))
    RefuseUnread(path, std::make_error_code(std::errc::is_a_directory));
  errno = 0;
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file.is_open() || file.bad()) RefuseUnread(path, {errno, std::generic_category()});
  return text;
}

/// The report file. The reports that come with the program need no file: a file in the place of one is a
/// version of the suite's own.
std::string ReadReport(const std::string& path) {
  std::error_code unknown;
  if (std::filesystem::exists(path, unknown)) return ReadWhole(path);
  const std::string_view builtIn = FindBuiltInReport(path);
  if (builtIn.empty()) RefuseReport(path, 0, "چنين پرونده اي نيست");
  return std::string(builtIn);
}

/// `name='text'`. An apostrophe inside the text is part of it: names of companies are not escaped.
void AddFormula(const std::string& formula, ReportFormulas& formulas) {
  const std::size_t equals = formula.find('=');
  const std::string_view whole(formula);
  const std::string_view text =
      equals == std::string::npos ? std::string_view() : Trim(whole.substr(equals + 1));
  if (text.size() < 2 || text.front() != '\'' || text.back() != '\'') {
    throw InputError("فرمول گزارش خوانده نشد: " + formula);
  }
  formulas.insert_or_assign(std::string(Trim(whole.substr(0, equals))),
                            std::string(text.substr(1, text.size() - 2)));
}

}  // namespace

std::unique_ptr<ReportDocument> SuiteReportPrinter::Prepare() const {
  ReportTemplate report = ParseReportTemplate(ReadReport(fileName_), fileName_);
  ReportFormulas formulas;
  for (const auto& [number, formula] : formulas_) AddFormula(formula, formulas);
  CheckTypedSpans(query_);
  Recordset records = databases_.Connect(connectionString_)->Open(query_);
  return std::make_unique<ReportDocument>(std::move(report), std::move(records), std::move(formulas));
}

}  // namespace koru
