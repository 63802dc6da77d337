#include "counting/CommandStates.h"

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// Whether the form holds what a save needs: a date, a store, and a good in the first line.
bool CanBeSaved(DocumentMode mode, const InvCountingControls& controls) {
  if (mode == DocumentMode::Viewing || controls.flexDetail.Rows() < 2) return false;
  return !controls.gdpReceiveDate.IsEmpty() && !controls.gmpInventory.NothingSelected() &&
         !controls.flexDetail.TextMatrix(1, LineColumn::GoodName).empty();
}

}  // namespace

void RefreshCommands(DocumentMode mode, InvCountingControls& controls) {
  const bool canBeSaved = CanBeSaved(mode, controls);
  controls.cmdIsFinalized.SetEnabled(canBeSaved);
  controls.cmdTmpSave.SetEnabled(canBeSaved);
  controls.cmdView.SetEnabled(!Trim(controls.lblIDVal.Caption()).empty());
  const bool stored = controls.CountingID() > 0 && mode == DocumentMode::Viewing;
  const bool final = Val(controls.txtCode.Text()) > 0;
  controls.cmdEdit.SetEnabled(stored && !final);
  controls.cmdDelete.SetEnabled(stored && !final);
  controls.cmdFunc.SetEnabled(stored && final);
  for (Button* button : {&controls.cmdCancel, &controls.cmdDelete, &controls.cmdEdit, &controls.cmdExit,
                         &controls.cmdIsFinalized, &controls.cmdNew, &controls.cmdTmpSave, &controls.cmdView,
                         &controls.cmdCalc, &controls.cmdDeleteAll, &controls.cmdGoods}) {
    button->SetLooksAvailable(button->Enabled());
  }
}

}  // namespace koru
