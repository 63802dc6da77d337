#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

namespace koru {

/// The controls of the counting form, by their own names. The operations of the form take them from here.
struct InvCountingControls {
  explicit InvCountingControls(Form& form);

  Label lblIDVal;   ///< the counting's key ("computer number"); empty: no stored counting on the form
  TextBox txtCode;  ///< the final number; empty: temporary
  TextBox txtGNO;   ///< the manual number
  TextBox txtCreator;
  TreeSelector gmpInventory;
  DateBox gdpReceiveDate;
  DateBox& gdpCreateDate = gdpReceiveDate;  ///< the same box under its second name
  DateBox gdpFromDate;
  DateBox gdpToDate;
  PersonSelector mptCounter1;
  PersonSelector mptCounter2;
  PersonSelector mptCounter3;
  PersonSelector mptConfirmer;
  TextBox txtNotes;

  Grid flexDetail;
  TextBox txtTotalBelowValue;  ///< sum of the shortage amounts
  TextBox txtTotalAboveValue;  ///< sum of the surplus amounts
  TextBox txtTotalValue;       ///< sum of the amounts of counted stock
  ProgressBar pgbStatus;

  Button cmdNew;
  Button cmdEdit;
  Button cmdDelete;
  Button cmdSearch;
  Button cmdGoods;
  Button cmdCalc;
  Button cmdDeleteAll;
  Button cmdTmpSave;
  Button cmdIsFinalized;
  Button cmdFunc;  ///< return to the temporary state
  Button cmdCancel;
  Button cmdView;
  Button cmdPrint;
  Button cmdExcel;
  Button cmdInvExit;     ///< the linked dispatch
  Button cmdInvReceipt;  ///< the linked receipt
  Button cmdExit;
  MenuItem mnuRS;
  Timer Timer1;

  /// The key of the counting on the form as a number; 0 when there is none.
  [[nodiscard]] double CountingID() const;
  /// Whether the counting on the form has a final number.
  [[nodiscard]] bool IsFinal() const;
};

}  // namespace koru
