#include "siblings/report/SuiteReportPrinter.h"

#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "siblings/report/ReportFile.h"

namespace koru {
namespace {

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
  ReportTemplate report = ParseReportTemplate(ReadReportFile(fileName_, dataFolder_), fileName_);
  ReportFormulas formulas;
  for (const auto& [number, formula] : formulas_) AddFormula(formula, formulas);
  CheckTypedSpans(query_);
  Recordset records = databases_.Connect(connectionString_)->Open(query_);
  auto document =
      std::make_unique<ReportDocument>(std::move(report), std::move(records), std::move(formulas));
  document->SetNote(note_);
  return document;
}

}  // namespace koru
