#include "counting/CommandStates.h"

#include <string>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "services/FixQuote.h"

namespace koru {
namespace {

/// What a save needs: a date, a store, and a good in the first line.
struct SaveNeeds {
  bool hasStore = false;
  bool hasDate = false;
  bool hasLines = false;

  [[nodiscard]] bool AreMet() const { return hasStore && hasDate && hasLines; }
};

SaveNeeds NeedsOf(const InvCountingControls& controls) {
  const Grid& lines = controls.flexDetail;
  return {.hasStore = !controls.gmpInventory.NothingSelected(),
          .hasDate = !controls.gdpReceiveDate.IsEmpty(),
          .hasLines = lines.Rows() >= 2 && !lines.TextMatrix(1, LineColumn::GoodName).empty()};
}

/// Why the counting on the form cannot be saved or registered, for the user. `whenViewed`: the reason while a
/// temporary counting is only viewed.
std::string WhyNotSaved(DocumentMode mode, const SaveNeeds& needs, bool isFinal, const char* whenViewed) {
  if (mode == DocumentMode::Viewing) return isFinal ? "اين شمارش ثبت نهايي شده است." : whenViewed;
  if (mode == DocumentMode::Empty) return "شمارشي روي فرم نيست: «جديد» يا «جستجو» را بزنيد.";
  std::string missing;
  const auto add = [&missing](bool isMet, const char* what) {
    if (!isMet) missing += (missing.empty() ? "" : "، ") + std::string(what);
  };
  add(needs.hasStore, "انبار");
  add(needs.hasDate, "تاريخ تهيه");
  add(needs.hasLines, "سطر كالا (با «كالاها»)");
  return "براي ثبت، اين ها كم است: " + missing;
}

/// Save and Register say what they lack, and the fields that lack it are marked.
void SetRemarks(DocumentMode mode, const SaveNeeds& needs, InvCountingControls& controls) {
  const auto explain = [&](Button& command, const char* whenViewed) {
    command.SetRemark(command.Enabled() ? std::string()
                                        : WhyNotSaved(mode, needs, controls.IsFinal(), whenViewed));
  };
  explain(controls.cmdTmpSave, "چيزي براي ثبت نيست: براي تغيير، «اصلاح» را بزنيد.");
  explain(controls.cmdIsFinalized, "براي ثبت نهايي، نخست «اصلاح» را بزنيد.");
  const bool entering = mode == DocumentMode::Editing || mode == DocumentMode::New;
  controls.gmpInventory.SetRemark(entering && !needs.hasStore ? "انبار شمارش را انتخاب كنيد." : "");
  const bool isOpen = HasOpenApostrophe(Trim(controls.txtGNO.Text()));
  controls.txtGNO.SetRemark(entering && isOpen ? "شماره دستي نبايد آپوستروف (') داشته باشد." : "");
  controls.gdpReceiveDate.SetRemark(entering && !needs.hasDate ? "تاريخ تهيه را بنويسيد." : "");
}

}  // namespace

void RefreshCommands(DocumentMode mode, InvCountingControls& controls) {
  const SaveNeeds needs = NeedsOf(controls);
  const bool canBeSaved = mode != DocumentMode::Viewing && needs.AreMet();
  controls.cmdIsFinalized.SetEnabled(canBeSaved);
  controls.cmdTmpSave.SetEnabled(canBeSaved);
  SetRemarks(mode, needs, controls);
  const bool entering = mode == DocumentMode::Editing || mode == DocumentMode::New;
  controls.mnuAcceptEqual.SetEnabled(entering && needs.hasLines);
  controls.cmdView.SetEnabled(!Trim(controls.lblIDVal.Caption()).empty());
  const bool stored = controls.CountingID() > 0 && mode == DocumentMode::Viewing;
  const bool final = Val(controls.txtCode.Text()) > 0;
  controls.cmdEdit.SetEnabled(stored && !final);
  controls.cmdDelete.SetEnabled(stored && !final);
  controls.cmdFunc.SetEnabled(stored && final);
  controls.mnuImport.SetEnabled(entering && needs.hasLines);
  controls.mnuMovedStock.SetEnabled(mode != DocumentMode::Empty && needs.hasStore && needs.hasLines);
  for (Button* button : {&controls.cmdCancel, &controls.cmdDelete, &controls.cmdEdit, &controls.cmdExit,
                         &controls.cmdIsFinalized, &controls.cmdNew, &controls.cmdTmpSave, &controls.cmdView,
                         &controls.cmdCalc, &controls.cmdDeleteAll, &controls.cmdGoods}) {
    button->SetLooksAvailable(button->Enabled());
  }
}

}  // namespace koru
