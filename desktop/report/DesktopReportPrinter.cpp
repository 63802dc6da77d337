#include "desktop/report/DesktopReportPrinter.h"

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QRegularExpression>
#include <utility>

#include "desktop/report/ReportPreview.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "reports/BuiltInReports.h"

namespace koru {
namespace {

constexpr const char* kTitle = "مشاهده گزارش";

/// The report file. The reports that come with the program need no file: one at their place is somebody's own
/// version of them.
std::string ReadReport(const std::string& path) {
  QFile file(ToQt(path));
  if (!file.exists()) {
    const std::string_view builtIn = FindBuiltInReport(path);
    if (builtIn.empty()) RefuseReport(path, 0, "چنين پرونده اي نيست");
    return std::string(builtIn);
  }
  if (!file.open(QIODevice::ReadOnly))
    RefuseReport(path, 0, "پرونده خوانده نشد (" + FromQt(file.errorString()) + ")");
  return file.readAll().toStdString();
}

/// `name='text'`. An apostrophe inside of the text is a part of it: names of companies come as they are.
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

/// The window above which the preview opens. While a form is modal, only windows that belong to it can be
/// used.
QWidget* WindowBelow() {
  QWidget* const modal = QApplication::activeModalWidget();
  return modal == nullptr ? QApplication::activeWindow() : modal;
}

}  // namespace

std::unique_ptr<ReportDocument> DesktopReportPrinter::Prepare() const {
  ReportTemplate report = ParseReportTemplate(ReadReport(fileName_), fileName_);
  ReportFormulas formulas;
  for (const auto& [number, formula] : formulas_) AddFormula(formula, formulas);
  CheckTypedSpans(query_);
  Recordset records = databases_.Connect(connectionString_)->Open(query_);
  return std::make_unique<ReportDocument>(std::move(report), std::move(records), std::move(formulas));
}

void DesktopReportPrinter::Show() { LetRead(Prepare()); }

void DesktopReportPrinter::LetRead(std::unique_ptr<const ReportDocument> report) {
  const std::string name = report->Name();
  QString title = ToQt(name.empty() ? kTitle : name);
  title.replace(QRegularExpression(QStringLiteral("[<>:\"/\\\\|?*]")),
                QStringLiteral("-"));  // a PDF is called so
  auto* const preview =  // NOLINT(cppcoreguidelines-owning-memory): deletes itself when it is closed
      new ReportPreview(std::move(report), title, tell_, WindowBelow());
  preview->show();
  preview->activateWindow();
}

}  // namespace koru
