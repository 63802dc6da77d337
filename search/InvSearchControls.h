#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"

namespace koru {

/// The controls of the counting search, by their own names. Bounds are inclusive; an empty criterion does not
/// narrow the search. txtcode1 and txtcode2 are bounds of the counting's number; txtCode is part of a good's
/// code.
class InvSearchControls {
  Form& form_;

 public:
  explicit InvSearchControls(Form& form);

  CheckBox chkTemp{form_, "chkTemp"};
  CheckBox chkFinal{form_, "chkFinal"};
  TextBox txtid1{form_, "txtid1"};
  TextBox txtid2{form_, "txtid2"};
  TextBox txtMinG{form_, "txtMinG"};  ///< manual numbers, compared as texts
  TextBox txtMaxG{form_, "txtMaxG"};
  TextBox txtcode1{form_, "txtcode1"};
  TextBox txtcode2{form_, "txtcode2"};
  ComboBox cmbcreator{form_, "cmbcreator"};
  DateBox gdpcreatedate1{form_, "gdpcreatedate1"};
  DateBox gdpcreatedate2{form_, "gdpcreatedate2"};
  DateBox gdpFromDate1{form_, "gdpFromDate1"};
  DateBox gdpFromDate2{form_, "gdpFromDate2"};
  DateBox gdpToDate1{form_, "gdpToDate1"};
  DateBox gdpToDate2{form_, "gdpToDate2"};
  TreeSelector gmpInventory{form_, "gmpInventory"};
  CheckBox chkAllInvs{form_, "chkAllInvs"};
  PersonSelector mptCounter1{form_, "mptCounter1"};
  PersonSelector mptCounter2{form_, "mptCounter2"};
  PersonSelector mptCounter3{form_, "mptCounter3"};
  PersonSelector mptConfirmer{form_, "mptConfirmer"};
  TextBox txtNotes{form_, "txtNotes"};
  TextBox txtBarCode{form_, "txtBarCode"};
  TextBox txtName{form_, "txtName"};
  TextBox txtCode{form_, "txtCode"};

  Button cmdSearch{form_, "cmdSearch"};
  Button cmdNew{form_, "cmdNew"};
  Button cmdExit{form_, "cmdExit"};
  Label lblResultCount{form_, "lblResultCount"};  ///< the count of found countings; empty before a search
  Grid flexSearch{form_, "flexSearch"};
};

}  // namespace koru
