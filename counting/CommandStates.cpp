#include "counting/CommandStates.h"

#include <array>
#include <utility>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// Whether there is enough on the form for a save: a date, a store, and a first line with a good.
bool CanBeSaved(DocumentMode mode, const InvCountingControls& controls) {
  if (mode == DocumentMode::Viewing || controls.flexDetail.Rows() < 2) return false;
  return !controls.gdpReceiveDate.IsEmpty() && !controls.gmpInventory.NothingSelected() &&
         !controls.flexDetail.TextMatrix(1, LineColumn::GoodName).empty();
}

}  // namespace

void disablelockcomponent(DocumentMode mode, InvCountingControls& controls) {
  if (mode < DocumentMode::Viewing || mode > DocumentMode::Empty) return;
  const bool viewing = mode == DocumentMode::Viewing;
  const bool empty = mode == DocumentMode::Empty;
  const bool entering = mode == DocumentMode::Editing || mode == DocumentMode::New;
  const std::array<std::pair<Control*, bool>, 22> states = {{
      {&controls.flexDetail, !empty},
      {&controls.cmdNew, !entering},
      {&controls.cmdEdit, viewing},
      {&controls.cmdDelete, viewing},
      {&controls.cmdTmpSave, entering},
      {&controls.cmdCancel, entering},
      {&controls.cmdView, false},
      {&controls.cmdPrint, false},
      {&controls.cmdExit, true},
      {&controls.mptCounter1, entering},
      {&controls.mptCounter2, entering},
      {&controls.mptCounter3, entering},
      {&controls.mptConfirmer, entering},
      {&controls.gmpInventory, entering},
      {&controls.gdpReceiveDate, entering},
      {&controls.gdpFromDate, entering},
      {&controls.gdpToDate, entering},
      {&controls.cmdGoods, entering},
      {&controls.cmdCalc, entering},
      {&controls.cmdDeleteAll, entering},
      {&controls.txtGNO, true},
      {&controls.txtNotes, true},
  }};
  for (const auto& [control, enabled] : states) control->SetEnabled(enabled);
  controls.txtGNO.SetLocked(!entering);
  controls.txtNotes.SetLocked(!entering);
  // A stored counting that is only viewed can be scrolled, sorted and copied from; figures typed into it
  // would be on the screen and nowhere else.
  controls.flexDetail.SetLocked(!entering);
}

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
