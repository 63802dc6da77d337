#pragma once

#include <cstddef>

#include "platform/controls/Button.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

namespace koru {

/// The maximum lengths of the notes and of the manual number in the database, in UTF-16 units.
inline constexpr std::size_t kMaxNotesLength = 1000;
inline constexpr std::size_t kMaxManualCodeLength = 255;

/// The controls of the counting form, by their own names. Every operation of the form takes them from here.
struct InvCountingControls {
  /// `owner` must outlive the controls; they are listed in the order in which they are declared.
  explicit InvCountingControls(Form& owner);

  Form& form;  ///< the form that the controls belong to

  Label lblIDVal{form, "lblIDVal"};  ///< the counting's key ("computer number"); empty: not stored yet
  TextBox txtCode{form, "txtCode"};  ///< the final number; empty: temporary
  TextBox txtGNO{form, "txtGNO"};    ///< the manual number
  TextBox txtCreator{form, "txtCreator"};
  TreeSelector gmpInventory{form, "gmpInventory"};
  DateBox gdpReceiveDate{form, "gdpReceiveDate"};
  DateBox& gdpCreateDate = gdpReceiveDate;  ///< the same box under its second name
  DateBox gdpFromDate{form, "gdpFromDate"};
  DateBox gdpToDate{form, "gdpToDate"};
  PersonSelector mptCounter1{form, "mptCounter1"};
  PersonSelector mptCounter2{form, "mptCounter2"};
  PersonSelector mptCounter3{form, "mptCounter3"};
  PersonSelector mptConfirmer{form, "mptConfirmer"};
  TextBox txtNotes{form, "txtNotes"};

  Grid flexDetail{form, "flexDetail"};                     ///< the lines; see lines/LineColumns.h
  TextBox txtTotalBelowValue{form, "txtTotalBelowValue"};  ///< sum of the shortage amounts
  TextBox txtTotalAboveValue{form, "txtTotalAboveValue"};  ///< sum of the surplus amounts
  TextBox txtTotalValue{form, "txtTotalValue"};            ///< sum of the amounts of counted stock
  ProgressBar pgbStatus{form, "pgbStatus"};                ///< visible only during a long operation
  Label lblFiguresAge{form,
                      "lblFiguresAge"};  ///< when the book stock was calculated; empty: none to register
  Button cmdStop{form, "cmdStop"};       ///< cancels it; visible only while it can be cancelled

  Button cmdNew{form, "cmdNew"};
  Button cmdEdit{form, "cmdEdit"};
  Button cmdDelete{form, "cmdDelete"};
  Button cmdSearch{form, "cmdSearch"};
  Button cmdGoods{form, "cmdGoods"};
  Button cmdCalc{form, "cmdCalc"};
  Button cmdDeleteAll{form, "cmdDeleteAll"};
  Button cmdReadLines{form,
                      "cmdReadLines"};  ///< visible while a viewed counting's lines are not the stored ones
  Button cmdAddScanned{form, "cmdAddScanned"};  ///< visible while a scanned good without a line is offered
  Button cmdTmpSave{form, "cmdTmpSave"};
  Button cmdIsFinalized{form, "cmdIsFinalized"};
  Button cmdFunc{form, "cmdFunc"};  ///< return to the temporary state
  Button cmdCancel{form, "cmdCancel"};
  Button cmdView{form, "cmdView"};
  Button cmdPrint{form,
                  "cmdPrint"};  ///< kept for the suite, which finds it by name; never visible, no command
  Button cmdExcel{form, "cmdExcel"};
  Button cmdInvExit{form, "cmdInvExit"};        ///< the linked dispatch
  Button cmdInvReceipt{form, "cmdInvReceipt"};  ///< the linked receipt
  Button cmdExit{form, "cmdExit"};
  MenuItem mnuRS{form, "mnuRS"};
  MenuItem mnuUndo{form, "mnuUndo"};  ///< of the figures that are being entered
  MenuItem mnuRedo{form, "mnuRedo"};
  MenuItem mnuImport{form, "mnuImport"};            ///< counts from a file
  MenuItem mnuAcceptEqual{form, "mnuAcceptEqual"};  ///< accepts the counts that agree
  MenuItem mnuMovedStock{form, "mnuMovedStock"};    ///< compares the book stock on the lines with the books
  Timer Timer1{form, "Timer1"};

  /// The key of the counting on the form as a number; 0 when there is none.
  [[nodiscard]] double CountingID() const;
  /// Whether the counting on the form has a final number.
  [[nodiscard]] bool IsFinal() const;
};

}  // namespace koru
