#include "lines/ImportCounts.h"

#include "lines/frmCountImport.h"
#include "platform/text/Text.h"
#include "services/CancelOffer.h"
#include "services/ShownProgress.h"

namespace koru {
namespace {

constexpr int kPermille = 1000;

}  // namespace

std::string ImportCounts::Run() {
  Grid& lines = controls_.flexDetail;
  if (shared_.services.tables == nullptr || lines.Locked()) return {};
  lines.UserLeave();  // a line without a barcode is removed before rows are compared
  if (lines.Rows() < 2) {
    shared_.messages.ShowMessage(sentences::kWarning, "شمارش هنوز سطري ندارد: نخست «كالاها» را بزنيد.");
    return {};
  }
  const std::string file = shared_.services.tables->Choose();
  if (file.empty()) return {};
  std::optional<FileTable> table = Read(file, 0);
  if (!table) return {};
  frmCountImport preview(shared_, lines, LeftToRight(file), std::move(*table),
                         [this, &file](std::size_t sheet) { return Read(file, sheet); });
  preview.Show(true);
  if (!preview.Accepted()) return {};
  const Hourglass busy(shared_.services.screen);
  const ImportOutcome outcome = ApplyImport(*preview.Accepted(), lines);
  std::string sentence = std::to_string(outcome.stored) + " عدد از پرونده نوشته شد";
  if (outcome.refused > 0) sentence += "؛ " + std::to_string(outcome.refused) + " عدد پذيرفته نشد";
  return sentence + ".";
}

/// Nothing if the user cancels.
std::optional<FileTable> ImportCounts::Read(const std::string& file, std::size_t sheet) {
  const Hourglass busy(shared_.services.screen);
  const CancelOffer cancel(controls_.cmdStop);
  const ShownProgress progress(controls_.pgbStatus, kPermille);
  return shared_.services.tables->Read(file, sheet, [&](int permille) {
    controls_.pgbStatus.SetValue(permille);
    return !cancel.Wanted();
  });
}

}  // namespace koru
