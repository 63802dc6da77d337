#include "search/frmGoodSearch.h"

#include <utility>

#include "search/FillList.h"
#include "search/GoodCondition.h"
#include "search/GoodSearchFields.h"
#include "search/Keys.h"

namespace koru {
namespace {

void SetUpTree(TreeSelector& selector, const std::string& connection, const char* caption, const char* table,
               const char* parentTable) {
  selector.SetConnectionString(connection);
  selector.SetCaption(caption);
  selector.ClearSelection();
  selector.SetTables(table, parentTable);
}

}  // namespace

frmGoodSearch::frmGoodSearch(SharedState& shared, std::function<void(SqlText)> SetGoodSearchCondition)
    : Form(shared.services.screen, "frmGoodSearch"),
      GoodSearchControls(static_cast<Form&>(*this)),
      shared_(shared),
      setGoodSearchCondition_(std::move(SetGoodSearchCondition)),
      picking_(*this, shared) {
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  ConnectEvents();
  ConnectFields(*this);
}

void frmGoodSearch::Load(std::int32_t store) {
  if (started_) return;
  InitializeComponents();
  Clear();
  picking_.Host();
  if (store != Selector::kNothing) {
    gmpInventory.Select(store);
    picking_.SetInventory(store);
  }
  pgbStatus.SetVisible(false);
  cmdExit.SetCaption("خروج");
  started_ = true;
}

void frmGoodSearch::InitializeComponents() {
  const std::string& connection = shared_.data.ConnectionString();
  SetUpTree(gmpProductGroup, connection, "گروه\u200Cهاي كالا", "vwGoodGroup_CodeMajor", "tblGoodGroupParent");
  SetUpTree(gmpLocation, connection, "محل\u200Cها", "tblBPLocation", "tblBPLocationChilds");
  SetUpTree(gtpSalesUnitType, connection, "واحدهاي كالا", "vwGoodScaleMajor", "tblGoodScaleParent");
  SetUpTree(gtpPurchaseUnitType, connection, "واحدهاي كالا", "vwGoodScaleMajor", "tblGoodScaleParent");
  SetUpTree(gmpInventory, connection, "انبارها", "tblInventory", "tblInventoryParent");
  dteInvCounting& data = shared_.data;
  FillList(cmbCMoneyType, data.rssqlCommon.Open(SqlText("Select * from tblPelinCurrencyType Order By Name")),
           "Name");
  FillList(cmbGoodType, data.rssqlCommon.Open(SqlText("Select * from tblGoodType Order By ID")), "Name");
  SetCaption("انتخاب از ميان كالاها");
  cmdExit.SetEnabled(true);
  optNonPrecise.Choose();
}

void frmGoodSearch::Clear() {
  for (TextBox* box : {&txtMinPrice, &txtMaxPrice, &txtMinQty, &txtMaxQty, &txtMinCurrencyRetailPrice,
                       &txtMaxCurrencyRetailPrice, &txtMinDiscountPercent, &txtMaxDiscountPercent,
                       &txtBarCode, &txtTitle, &txtCode, &txtNotes}) {
    box->SetText({});
  }
  txtBarCode.SetTag({});
  picking_.StartAfresh();
  for (CheckBox* box :
       {&chkKnownDiscount, &chkUnKnownDiscount, &chkAllBranches, &chkAllLBranches, &chkEmptyAllConds}) {
    box->SetChecked(true);
  }
  chkShowExistance.SetChecked(false);
  chkShowRialExistance.SetChecked(false);
  optPrecise.Choose();
  cmbCMoneyType.SetListIndex(-1);
  cmbGoodType.SetListIndex(-1);
  for (TreeSelector* selector : {&gtpSalesUnitType, &gtpPurchaseUnitType, &gmpProductGroup, &gmpLocation,
                                 &gmpInventory, &gmpProducer}) {
    selector->ClearSelection();
  }
  FlexSearchResult.SetRows(1);
  picked_ = {};
  setGoodSearchCondition_(SqlText());
}

void frmGoodSearch::ConnectEvents() {
  cmdSearch.Click.Always([this] { Search(); });
  cmdNewSearch.Click.Always([this] { Clear(); });
  cmdExit.Click.Always([this] { Hide(); });
  mnuSearch.Click.Always([this] { cmdSearch.Click.Raise(); });
  mnuNewSearch.Click.Always([this] { cmdNewSearch.Click.Raise(); });
  mnuExit.Click.Always([this] { cmdExit.Click.Raise(); });
  KeyDown.Always([this](KeyPress press) { RouteShortcut(press); });
  for (TextBox* box : {&txtBarCode, &txtCode, &txtTitle}) {
    box->KeyDown.Always([this](KeyPress press) {
      if (press.key == kKeyF3) picking_.Pick();
    });
  }
  Timer1.Tick.Always([this] { RefreshEntries(*this); });
}

void frmGoodSearch::Search() {
  setGoodSearchCondition_(GoodCondition(*this).Text());
  picked_ = {picking_.GoodsIn(txtBarCode.Tag()), CriteriaBesideTheList(*this)};
  Hide();
}

void frmGoodSearch::RouteShortcut(KeyPress press) {
  if (press.key == kKeyF1) {
    menu.PopUp(MenuPlace::FormCentre);
    return;
  }
  if (press.shift != kShiftCtrl) return;
  if (press.key == kKeyS && cmdSearch.Enabled()) cmdSearch.Click.Raise();
  if (press.key == kKeyN && cmdNewSearch.Enabled()) cmdNewSearch.Click.Raise();
  if (press.key == kKeyZ && cmdExit.Enabled()) cmdExit.Click.Raise();
}

}  // namespace koru
