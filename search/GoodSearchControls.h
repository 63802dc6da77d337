#pragma once

#include "platform/Button.h"
#include "platform/CheckBox.h"
#include "platform/ComboBox.h"
#include "platform/Grid.h"
#include "platform/Label.h"
#include "platform/MenuItem.h"
#include "platform/OptionButton.h"
#include "platform/PopupMenu.h"
#include "platform/ProgressBar.h"
#include "platform/Selector.h"
#include "platform/TextBox.h"
#include "platform/Timer.h"

namespace koru {

/// The controls of the goods search, by their own names. Bounds are inclusive.
class GoodSearchControls {
  Form& form_;
  OptionGroup precision_;

 public:
  explicit GoodSearchControls(Form& form);

  Label lblBarCode{form_, "lblBarCode"};
  TextBox txtBarCode{form_, "txtBarCode"};  ///< its tag: the list of goods that were picked; empty: none were
  Label lblTitle{form_, "lblTitle"};
  TextBox txtTitle{form_, "txtTitle"};
  Label lblCode{form_, "lblCode"};
  TextBox txtCode{form_, "txtCode"};
  TextBox txtNotes{form_, "txtNotes"};
  OptionButton optPrecise{form_, "optPrecise", precision_};  ///< whole texts, in which * stands for any text
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
  TreeSelector gmpProducer{form_, "gmpProducer"};    ///< narrows nothing
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
