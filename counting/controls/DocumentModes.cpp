#include "counting/controls/DocumentModes.h"

#include <array>
#include <utility>

namespace koru {

void disablelockcomponent(DocumentMode mode, InvCountingControls& controls) {
  if (mode < DocumentMode::Viewing || mode > DocumentMode::Empty) return;
  const bool viewing = mode == DocumentMode::Viewing;
  const bool empty = mode == DocumentMode::Empty;
  const bool entering = mode == DocumentMode::Editing || mode == DocumentMode::New;
  const std::array<std::pair<Control*, bool>, 23> states = {{
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
      {&controls.mnuImport, entering},
      {&controls.txtGNO, true},
      {&controls.txtNotes, true},
  }};
  for (const auto& [control, enabled] : states) control->SetEnabled(enabled);
  controls.txtGNO.SetLocked(!entering);
  controls.txtNotes.SetLocked(!entering);
  // A counting that is only viewed can be scrolled, sorted and copied; a figure typed into it would never be
  // stored.
  controls.flexDetail.SetLocked(!entering);
}

void SetDocumentMode(DocumentMode mode, InvCountingControls& controls, SharedState& shared) {
  shared.DocMode = mode;
  disablelockcomponent(mode, controls);
}

}  // namespace koru
