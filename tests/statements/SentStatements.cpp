#include "tests/statements/SentStatements.h"

#include <memory>

#include "lines/LineColumns.h"
#include "output/frmReport.h"
#include "tests/counting/CountingWorld.h"
#include "tests/counting/HostedDocument.h"

namespace koru::test {
namespace {

using std::chrono::year;

constexpr const char* kMore = R"(
insert into tblGoodType (ID,Name) values (2,'كالا');
insert into tblPelinCurrencyType (ID,Name) values (3,'يورو');
insert into tblGoodSaleScale (Barcode,ScaleID) values ('G1',1);
insert into tblPelinReportTemplate (ID,FormTypeID,Title,FilePath) values (5,806,'شمارش','counting.rpt');
insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,2,'2025-04-01');
insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'G1',5,2);
)";

/// Notes the statement that a report is printed from.
class NotingPrinter : public ReportPrinter {
 public:
  explicit NotingPrinter(std::string& query) : query_(query) {}
  void SetReportFileName(const std::string& /*fileName*/) override {}
  void SetConnectionString(const std::string& /*connectionString*/) override {}
  void SetSQLQuery(const SqlText& query) override { query_ = query.Text(); }
  void SetFormula(int /*number*/, const std::string& /*formula*/) override {}
  void Show() override {}

 private:
  std::string& query_;
};

/// A user who leads the form through everything.
class Tour : public CountingWorld {
 public:
  /// On a file: a server is asked more often whether another station has changed the counting.
  Tour() : CountingWorld(TestDatabase::Kind::File) {
    database.Execute(kMore);
    components.Register(std::string(DocumentComponent::kDispatchClassName),
                        [this] { return std::make_unique<HostedDocument>(documentCalls_); });
    components.Register(std::string(DocumentComponent::kReceiptClassName),
                        [this] { return std::make_unique<HostedDocument>(documentCalls_); });
    components.Register(std::string(ReportPrinter::kClassName),
                        [this] { return std::make_unique<NotingPrinter>(printed_); });
  }

  std::vector<Operation> Take() {
    control.View(10);
    Note("A stored counting is opened");
    control.ClearShow();
    Note("The empty form is opened");
    EnterCounting();
    SaveAndRegister();
    Look();
    FindCountings();
    ReturnAndDelete();
    return std::move(operations_);
  }

 private:
  void TestBody() override {}

  void Note(const std::string& title) {
    operations_.push_back({title, recording.Statements()});
    recording.ForgetStatements();
    EXPECT_EQ(NewMessages(), Texts{}) << title;
  }

  void EnterCounting() {
    Click(Form().cmdNew);
    Note("New: the default store is proposed");
    Form().gmpInventory.UserSelect(1);
    NewMessages();  // a store with children is not counted
    Note("A store with children is chosen, and the default store takes its place");
    Form().gdpFromDate.UserSet(year{2025} / 3 / 21);
    Form().gdpToDate.UserSet(year{2025} / 12 / 21);
    FindGoods("Goods search, by everything that can be asked for", [](frmGoodSearch& form) {
      form.optPrecise.UserChoose();
      AskForParts(form);
      AskForTheRest(form);
      form.gmpInventory.UserSelect(2);
      form.chkKnownDiscount.UserCheck(false);
      form.chkUnKnownDiscount.UserCheck(false);
    });
    FindGoods("Goods search, by parts of texts and without the branches", [](frmGoodSearch& form) {
      form.optNonPrecise.UserChoose();
      AskForParts(form);
      form.gmpProductGroup.UserSelect(11);
      form.chkAllBranches.UserCheck(false);
      form.gmpLocation.UserSelect(111);
      form.chkAllLBranches.UserCheck(false);
    });
    FindGoods("Goods search, goods that were picked; each new line gets its unit, rate and book stock",
              [](frmGoodSearch& form) { form.txtBarCode.SetTag("('','G1','G2')"); });
    Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "3");
    Form().flexDetail.UserEdit(2, LineColumn::AcceptedCounting, "4");
    Click(Form().cmdCalc);
    Note("Calculate, with a line for which a unit and a receipt's rate are found and one without");
    screen.OnModal = nullptr;  // the list is closed
    database.Execute("update tblInventoryReceiptDetail set Qty=6 where Barcode='G1'");
    Form().Timer1.Fire();
    Form().mnuMovedStock.UserClick();
    database.Execute("update tblInventoryReceiptDetail set Qty=5 where Barcode='G1'");
    Note("Stock that has moved: the figures of Calculate, then the documents of the line that is looked at");
  }

  static void AskForParts(frmGoodSearch& form) {
    form.txtBarCode.UserType("G*");
    form.txtTitle.UserType("چا*'");
    form.txtCode.UserType("1*");
    form.txtNotes.UserType("it's");
  }

  static void AskForTheRest(frmGoodSearch& form) {
    form.txtMaxPrice.UserType("2000");
    form.txtMinPrice.UserType("1000");
    form.txtMaxQty.UserType("20");
    form.txtMinQty.UserType("1.5");
    form.txtMaxCurrencyRetailPrice.UserType("30");
    form.txtMinCurrencyRetailPrice.UserType("3");
    form.txtMaxDiscountPercent.UserType("10");
    form.txtMinDiscountPercent.UserType("0");
    form.cmbCMoneyType.UserChoose(0);
    form.gtpSalesUnitType.UserSelect(1);
    form.gtpPurchaseUnitType.UserSelect(1);
    form.cmbGoodType.UserChoose(0);
    form.gmpProductGroup.UserSelect(11);
    form.chkAllBranches.UserCheck(true);
    form.gmpLocation.UserSelect(111);
    form.chkAllLBranches.UserCheck(true);
  }

  void FindGoods(const std::string& title, const std::function<void(frmGoodSearch&)>& ask) {
    screen.OnModal = [&](koru::Form& shown) {
      auto& form = dynamic_cast<frmGoodSearch&>(shown);
      form.cmdNewSearch.UserClick();
      form.gmpInventory.ClearSelection();
      ask(form);
      form.cmdSearch.UserClick();
    };
    Click(Form().cmdGoods);
    Note(title);
  }

  void SaveAndRegister() {
    Form().mptCounter1.UserSelect(7);
    Form().mptConfirmer.UserSelect(8);
    Form().txtNotes.UserType("شمارش 'پاييز'");
    Form().txtGNO.UserType("A-14");
    Form().Timer1.Fire();
    Click(Form().cmdTmpSave);
    Note("Temporary save of a new counting");
    Click(Form().cmdEdit);
    Note("Edit");
    messages.WillAnswer(FakeMessages::Answer::Yes);
    Click(Form().cmdCancel);
    NewMessages();
    Note("Cancel, which shows the counting as it is stored");
    Edit();
    Click(Form().cmdTmpSave);
    Note("Temporary save of a stored counting");
    Edit();
    Click(Form().cmdIsFinalized);
    Note("Final registration, with a shortage and a surplus");
    View(10);
    Edit();
    Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "12.5");
    Form().flexDetail.UserEdit(2, LineColumn::AcceptedCounting, "1");
    Click(Form().cmdIsFinalized);
    Note("Final registration of a counting without differences");
  }

  void Edit() {
    Form().Timer1.Fire();
    Click(Form().cmdEdit);
    Form().Timer1.Fire();
    NewStatements();
  }

  void Look() {
    View(14);
    NewStatements();
    Click(Form().cmdInvExit);
    Note("The dispatch of a counting is opened");
    Click(Form().cmdInvReceipt);
    Note("The receipt of a counting is opened");
    screen.OnModal = [](koru::Form& shown) { dynamic_cast<frmReport&>(shown).cmdPrint.UserClick(); };
    Click(Form().cmdView);
    Note("A report is chosen");
    operations_.push_back({"The report is printed from", {printed_}});
  }

  void FindCountings() {
    Search("Counting search, opened and asked for all", [](frmInvSearch&) {});
    Search("Counting search, by everything that can be asked for", &AskForEverything);
    Search("Counting search, temporary ones of a store without its children", [](frmInvSearch& form) {
      form.chkFinal.UserCheck(false);
      form.gmpInventory.UserSelect(2);
    });
    Search("Counting search, final ones", [](frmInvSearch& form) { form.chkTemp.UserCheck(false); });
    Search("Counting search, neither temporary nor final ones", [](frmInvSearch& form) {
      form.chkTemp.UserCheck(false);
      form.chkFinal.UserCheck(false);
    });
  }

  static void AskForEverything(frmInvSearch& form) {
    form.txtid1.UserType("10");
    form.txtid2.UserType("14");
    form.txtMinG.UserType("A-10");
    form.txtMaxG.UserType("A-19");
    form.txtcode1.UserType("1");
    form.txtcode2.UserType("9");
    form.cmbcreator.UserChoose(0);
    form.gdpcreatedate1.UserSet(year{2025} / 12 / 20);
    form.gdpcreatedate2.UserSet(year{2025} / 12 / 22);
    form.gdpFromDate1.UserSet(year{2025} / 3 / 21);
    form.gdpFromDate2.UserSet(year{2025} / 3 / 22);
    form.gdpToDate1.UserSet(year{2025} / 12 / 20);
    form.gdpToDate2.UserSet(year{2025} / 12 / 21);
    form.gmpInventory.UserSelect(1);
    form.chkAllInvs.UserCheck(true);
    form.mptCounter1.UserSelect(7);
    form.mptCounter2.UserSelect(8);
    form.mptCounter3.UserSelect(7);
    form.mptConfirmer.UserSelect(8);
    form.txtNotes.UserType("پاييز");
    form.txtBarCode.UserType("G1");
    form.txtName.UserType("چاي");
    form.txtCode.UserType("101");
  }

  void Search(const std::string& title, const std::function<void(frmInvSearch&)>& ask) {
    screen.OnModal = [&](koru::Form& shown) {
      auto& form = dynamic_cast<frmInvSearch&>(shown);
      form.cmdNew.UserClick();
      ask(form);
      form.cmdSearch.UserClick();
    };
    Click(Form().cmdSearch);
    Note(title);
  }

  void ReturnAndDelete() {
    View(14);
    NewStatements();
    messages.WillAnswer(FakeMessages::Answer::Yes);
    Click(Form().cmdFunc);
    NewMessages();
    Note("Return to temporary");
    View(14);
    NewStatements();
    messages.WillAnswer(FakeMessages::Answer::Yes);
    Click(Form().cmdDelete);
    NewMessages();
    Note("Delete");
  }

  std::vector<Operation> operations_;
  Texts documentCalls_;
  std::string printed_;
};

}  // namespace

std::vector<Operation> SentStatements() { return Tour().Take(); }

}  // namespace koru::test
