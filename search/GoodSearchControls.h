#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/PopupMenu.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

namespace koru {

/// The controls of the goods search, by their own names. Bounds are inclusive.
class GoodSearchControls {
  Form& form_;
  OptionGroup precision_;

 public:
  explicit GoodSearchControls(Form& form);

  Label lblBarCode{form_, "lblBarCode"};
  TextBox txtBarCode{form_, "txtBarCode"};  ///< its tag: the list of the picked goods; empty: none
  Label lblTitle{form_, "lblTitle"};
  TextBox txtTitle{form_, "txtTitle"};
  Label lblCode{form_, "lblCode"};
  TextBox txtCode{form_, "txtCode"};
  TextBox txtNotes{form_, "txtNotes"};
  OptionButton optPrecise{form_, "optPrecise", precision_};  ///< compares whole texts; * matches any text
  OptionButton optNonPrecise{form_, "optNonPrecise", precision_};

  TextBox txtMinPrice{form_, "txtMinPrice"};
  Label lblMaxPrice{form_, "lblMaxPrice"};
  TextBox txtMaxPrice{form_, "txtMaxPrice"};
  TextBox txtMinCurrencyRetailPrice{form_, "txtMinCurrencyRetailPrice"};
  TextBox txtMaxCurrencyRetailPrice{form_, "txtMaxCurrencyRetailPrice"};
  ComboBox cmbCMoneyType{form_, "cmbCMoneyType"};
  TextBox txtMinQty{form_, "txtMinQty"};
  TextBox txtMaxQty{form_, "txtMaxQty"};
  TextBox txtMinDiscountPercent{form_, "txtMinDiscountPercent"};
  TextBox txtMaxDiscountPercent{form_, "txtMaxDiscountPercent"};
  CheckBox chkKnownDiscount{form_, "chkKnownDiscount"};
  CheckBox chkUnKnownDiscount{form_, "chkUnKnownDiscount"};

  ComboBox cmbGoodType{form_, "cmbGoodType"};
  Button cmdGoodType{form_, "cmdGoodType"};
  TreeSelector gtpSalesUnitType{form_, "gtpSalesUnitType"};
  TreeSelector gtpPurchaseUnitType{form_, "gtpPurchaseUnitType"};
  TreeSelector gmpProductGroup{form_, "gmpProductGroup"};
  CheckBox chkAllBranches{form_, "chkAllBranches"};
  Label lblLocation{form_, "lblLocation"};
  TreeSelector gmpLocation{form_, "gmpLocation"};
  CheckBox chkAllLBranches{form_, "chkAllLBranches"};
  TreeSelector gmpInventory{form_, "gmpInventory"};  ///< a store whose receipts contain the good
  TreeSelector gmpProducer{form_, "gmpProducer"};    ///< does not narrow the search
  CheckBox chkEmptyAllConds{form_, "chkEmptyAllConds"};
  CheckBox chkShowExistance{form_, "chkShowExistance"};
  CheckBox chkShowRialExistance{form_, "chkShowRialExistance"};

  Button cmdSearch{form_, "cmdSearch"};
  Button cmdNewSearch{form_, "cmdNewSearch"};
  Button cmdExit{form_, "cmdExit"};
  ProgressBar pgbStatus{form_, "pgbStatus"};
  Grid FlexSearchResult{form_, "FlexSearchResult"};

  PopupMenu menu{form_, "menu"};
  MenuItem mnuHelp{form_, "mnuHelp"};
  MenuItem mnuSearch{form_, "mnuSearch"};
  MenuItem mnuNewSearch{form_, "mnuNewSearch"};
  MenuItem mnuExit{form_, "mnuExit"};
  Timer Timer1{form_, "Timer1"};
};

}  // namespace koru
