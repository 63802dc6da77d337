#include "desktop/report/OpenPreview.h"

#include <QApplication>
#include <QRegularExpression>
#include <utility>

#include "desktop/report/ReportPreview.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

constexpr const char* kTitle = "مشاهده گزارش";

/// The window above which the preview opens. While a form is modal, only windows that belong to it can be
/// used.
QWidget* WindowBelow() {
  QWidget* const modal = QApplication::activeModalWidget();
  return modal == nullptr ? QApplication::activeWindow() : modal;
}

}  // namespace

void OpenPreview(std::unique_ptr<const ReportDocument> report,
                 std::function<void(const std::string&)> reportFailure) {
  const std::string name = report->Name();
  QString title = ToQt(name.empty() ? kTitle : name);
  // The title is the proposed name of a PDF file.
  title.replace(QRegularExpression(QStringLiteral("[<>:\"/\\\\|?*]")), QStringLiteral("-"));
  auto* const preview =  // NOLINT(cppcoreguidelines-owning-memory): deletes itself when it is closed
      new ReportPreview(std::move(report), title, std::move(reportFailure), WindowBelow());
  preview->show();
  preview->activateWindow();
}

}  // namespace koru
