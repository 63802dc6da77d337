#include "desktop/suite/Windows.h"

#include <memory>
#include <string>
#include <utility>

#include "counting/frmInvCounting.h"
#include "desktop/documents/StockDocumentDialog.h"
#include "desktop/forms/CountImportWindow.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/forms/MessageDialog.h"
#include "desktop/forms/MovedStockWindow.h"
#include "desktop/report/OpenPreview.h"
#include "desktop/report/ReportWindow.h"
#include "desktop/search/GoodSearchWindow.h"
#include "desktop/search/GoodsPickerDialog.h"
#include "desktop/search/InvSearchWindow.h"
#include "lines/frmCountImport.h"
#include "lines/frmMovedStock.h"
#include "output/frmReport.h"
#include "services/Messages.h"
#include "siblings/report/SuiteReportPrinter.h"

namespace koru {
namespace {

/// Windows whose selectors read records.
template <class Window, class FormKind>
DesktopScreen::Factory WithRecords(SelectorRecords& records) {
  return [&records](Form& form) -> std::unique_ptr<FormWindow> {
    return std::make_unique<Window>(dynamic_cast<FormKind&>(form), records);
  };
}

}  // namespace

void RegisterWindows(DesktopScreen& screen, SelectorRecords& records,
                     std::function<void(InvCountingWindow&, frmInvCounting&)> extend) {
  screen.Register("frmInvCounting",
                  [&records, extend = std::move(extend)](Form& form) -> std::unique_ptr<FormWindow> {
                    auto& counting = dynamic_cast<frmInvCounting&>(form);
                    auto window = std::make_unique<InvCountingWindow>(counting, records);
                    if (extend) extend(*window, counting);
                    return window;
                  });
  screen.Register("frmInvSearch", WithRecords<InvSearchWindow, frmInvSearch>(records));
  screen.Register("frmGoodSearch", WithRecords<GoodSearchWindow, frmGoodSearch>(records));
  screen.Register("frmCountImport", [](Form& form) -> std::unique_ptr<FormWindow> {
    return std::make_unique<CountImportWindow>(dynamic_cast<frmCountImport&>(form));
  });
  screen.Register("frmMovedStock", [](Form& form) -> std::unique_ptr<FormWindow> {
    return std::make_unique<MovedStockWindow>(dynamic_cast<frmMovedStock&>(form));
  });
  screen.Register("frmReport", [](Form& form) -> std::unique_ptr<FormWindow> {
    return std::make_unique<ReportWindow>(dynamic_cast<frmReport&>(form));
  });
}

void RegisterDesktopComponents(ComponentRegistry& components, DatabaseConnector& databases,
                               const std::filesystem::path& dataFolder) {
  components.Register(std::string(MessageComponent::kClassName),
                      [] { return std::make_unique<MessageDialog>(); });
  components.Register(std::string(GoodsPicker::kClassName),
                      [&databases] { return std::make_unique<SuiteGoodsPicker>(databases, PickInDialog); });
  RegisterDocumentComponents(components, databases, ShowInDialog);
  const auto showFailure = [&components](const std::string& sentence) {
    Messages(components).ShowMessage(sentences::kError, sentence);
  };
  const auto preview = [showFailure](std::unique_ptr<const ReportDocument> report) {
    OpenPreview(std::move(report), showFailure);
  };
  components.Register(std::string(ReportPrinter::kClassName), [&databases, dataFolder, preview] {
    return std::make_unique<SuiteReportPrinter>(databases, dataFolder, preview);
  });
}

}  // namespace koru
