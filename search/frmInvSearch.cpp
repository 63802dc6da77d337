#include "search/frmInvSearch.h"

#include <string>
#include <utility>

#include "search/FillList.h"
#include "search/InvSearchQuery.h"
#include "search/InvSearchResult.h"
#include "search/Keys.h"

namespace koru {
namespace {

constexpr int kColumnID = 1;

std::string CountText(int count) {
  return count == 0 ? "شمارشي يافت نشد." : std::to_string(count) + " شمارش يافت شد";
}

}  // namespace

frmInvSearch::frmInvSearch(SharedState& shared, std::function<bool(std::int32_t)> ViewInvCounting)
    : Form(shared.services.screen, "frmInvSearch"),
      InvSearchControls(static_cast<Form&>(*this)),
      shared_(shared),
      viewInvCounting_(std::move(ViewInvCounting)) {
  SetCaption("جستجوي شمارش");
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  ConnectEvents();
}

void frmInvSearch::Load() {
  if (started_) return;
  Initialize();
  Clear();
  started_ = true;
}

void frmInvSearch::Initialize() {
  SetUpInvSearchResult(flexSearch);
  const std::string& connection = shared_.data.ConnectionString();
  gmpInventory.SetConnectionString(connection);
  gmpInventory.SetCaption("انبارها");
  gmpInventory.ClearSelection();
  gmpInventory.SetTables("tblInventory", "tblInventoryParent");
  for (PersonSelector* person : {&mptCounter1, &mptCounter2, &mptCounter3, &mptConfirmer}) {
    person->SetConnectionString(connection);
  }
  FillList(cmbcreator,
           shared_.data.rssqlcreator.Open(SqlText("select ID,FullName from tbluser order by FullName")),
           "FullName");
}

void frmInvSearch::Clear() {
  for (TextBox* box : {&txtMaxG, &txtMinG, &txtid1, &txtid2, &txtcode1, &txtcode2, &txtNotes, &txtBarCode,
                       &txtName, &txtCode}) {
    box->SetText({});
  }
  cmbcreator.SetListIndex(-1);
  for (PersonSelector* person : {&mptConfirmer, &mptCounter1, &mptCounter2, &mptCounter3})
    person->ClearSelection();
  for (DateBox* box :
       {&gdpcreatedate1, &gdpcreatedate2, &gdpFromDate1, &gdpFromDate2, &gdpToDate1, &gdpToDate2}) {
    box->Clear();
  }
  gmpInventory.ClearSelection();
  chkAllInvs.SetChecked(false);
  chkFinal.SetChecked(true);
  chkTemp.SetChecked(true);
  flexSearch.SetRows(1);
  lblResultCount.SetCaption({});
}

void frmInvSearch::ConnectEvents() {
  cmdSearch.Click.Always([this] { Search(); });
  cmdNew.Click.Always([this] { Clear(); });
  cmdExit.Click.Always([this] { Hide(); });
  cmbcreator.KeyDown.Always([this](KeyPress press) {
    if (press.key == kKeyDelete) cmbcreator.SetListIndex(-1);
  });
  flexSearch.HeaderClick.Always([this](int col) {
    if (col > 0) SortFoundCountings(flexSearch, col);
  });
  flexSearch.DblClick.Always([this] { OpenCurrentRow(); });
}

void frmInvSearch::Search() {
  const Hourglass hourglass(TheScreen());
  flexSearch.SetRows(1);
  lblResultCount.SetCaption({});
  Recordset found = shared_.data.rssqlInvSearch.Open(InvSearchQuery(*this).Statement());
  ShowFoundCountings(flexSearch, found);
  lblResultCount.SetCaption(CountText(flexSearch.Rows() - 1));
}

void frmInvSearch::OpenCurrentRow() {
  const int row = flexSearch.Row();
  if (row < 1) return;
  viewInvCounting_(Value(flexSearch.TextMatrix(row, kColumnID)).Integer());
  Hide();
}

}  // namespace koru
