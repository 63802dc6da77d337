#include "registration/FinalRegistration.h"

#include <cstdint>
#include <optional>
#include <string>

#include "platform/text/Numbers.h"
#include "services/Permission.h"

namespace koru {
namespace {

constexpr const char* kFinalTitle = "شمارش";

}  // namespace

FinalRegistration::FinalRegistration(InvCountingControls& controls, SharedState& shared,
                                     StoredCountingGuard& guard)
    : controls_(controls), shared_(shared), writer_(controls, shared, guard), documents_(controls, shared) {}

std::optional<AdjustmentDocuments::Written> FinalRegistration::Run() {
  if (!CheckPermission(shared_, FormPermission::FinalRegistration)) return {};
  const auto& mayBegin = shared_.services.beforeRegistration;
  if (mayBegin && !mayBegin()) return {};
  const Hourglass busy(shared_.services.screen);
  AdjustmentDocuments::Written documents;
  const bool isWritten = writer_.Save([&]() -> std::optional<LinesDigest> {
    ShowNextCode();
    controls_.form.SetCaption(kFinalTitle);
    const auto lines = writer_.Write();
    if (!lines || !StoreCode()) return {};
    documents = documents_.CreateAdjustmentDocuments();
    return lines;
  });
  return isWritten ? std::optional(documents) : std::nullopt;
}

void FinalRegistration::ShowNextCode() {
  const Recordset highest = shared_.data.rssqlCommon.Open(SqlText(
      "select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting where Code is not Null "));
  std::int64_t next = 1;
  if (highest.RecordCount() >= 1) next += highest.Field("maxcode").Integer();
  controls_.txtCode.SetText(std::to_string(next));
}

bool FinalRegistration::StoreCode() {
  const Recordset updated =
      shared_.data.rssqleditenter.Open(SqlText("update tblInventoryCounting set Code = ") +
                                       Val(controls_.txtCode.Text()) + " where id=" + controls_.CountingID());
  return updated.AffectedRows() != 0;
}

}  // namespace koru
