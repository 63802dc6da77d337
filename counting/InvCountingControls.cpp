#include "counting/InvCountingControls.h"

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "registration/CountingWriter.h"

namespace koru {

InvCountingControls::InvCountingControls(Form& form)
    : lblIDVal(form, "lblIDVal"),
      txtCode(form, "txtCode"),
      txtGNO(form, "txtGNO"),
      txtCreator(form, "txtCreator"),
      gmpInventory(form, "gmpInventory"),
      gdpReceiveDate(form, "gdpReceiveDate"),
      gdpFromDate(form, "gdpFromDate"),
      gdpToDate(form, "gdpToDate"),
      mptCounter1(form, "mptCounter1"),
      mptCounter2(form, "mptCounter2"),
      mptCounter3(form, "mptCounter3"),
      mptConfirmer(form, "mptConfirmer"),
      txtNotes(form, "txtNotes"),
      flexDetail(form, "flexDetail"),
      txtTotalBelowValue(form, "txtTotalBelowValue"),
      txtTotalAboveValue(form, "txtTotalAboveValue"),
      txtTotalValue(form, "txtTotalValue"),
      pgbStatus(form, "pgbStatus"),
      cmdNew(form, "cmdNew"),
      cmdEdit(form, "cmdEdit"),
      cmdDelete(form, "cmdDelete"),
      cmdSearch(form, "cmdSearch"),
      cmdGoods(form, "cmdGoods"),
      cmdCalc(form, "cmdCalc"),
      cmdDeleteAll(form, "cmdDeleteAll"),
      cmdTmpSave(form, "cmdTmpSave"),
      cmdIsFinalized(form, "cmdIsFinalized"),
      cmdFunc(form, "cmdFunc"),
      cmdCancel(form, "cmdCancel"),
      cmdView(form, "cmdView"),
      cmdPrint(form, "cmdPrint"),
      cmdExcel(form, "cmdExcel"),
      cmdInvExit(form, "cmdInvExit"),
      cmdInvReceipt(form, "cmdInvReceipt"),
      cmdExit(form, "cmdExit"),
      mnuRS(form, "mnuRS"),
      Timer1(form, "Timer1") {
  cmdNew.SetCaption("جديد");
  cmdEdit.SetCaption("اصلاح");
  cmdDelete.SetCaption("حذف");
  cmdSearch.SetCaption("جستجو");
  cmdGoods.SetCaption("كالاها");
  cmdCalc.SetCaption("محاسبه");
  cmdDeleteAll.SetCaption("حذف همه");
  cmdTmpSave.SetCaption("ثبت موقت");
  cmdIsFinalized.SetCaption("ثبت نهايي");
  cmdFunc.SetCaption("بازگشت به موقت");
  cmdCancel.SetCaption("انصراف");
  cmdView.SetCaption("مشاهده");
  cmdPrint.SetCaption("چاپ");
  cmdExcel.SetCaption("اكسل");
  cmdInvExit.SetCaption("برگ خروج");
  cmdInvReceipt.SetCaption("برگ رسيد");
  cmdExit.SetCaption("خروج");
  mnuRS.SetCaption("بازگشت به حالت موقت");
  // No mode makes it available: people print the report that cmdView shows.
  cmdPrint.SetVisible(false);
  txtGNO.SetMaxLength(kMaxManualCodeLength);
  txtNotes.SetMaxLength(kMaxNotesLength);
  for (TextBox* shown : {&txtCode, &txtCreator, &txtTotalBelowValue, &txtTotalAboveValue, &txtTotalValue}) {
    shown->SetLocked(true);
  }
}

double InvCountingControls::CountingID() const { return Val(lblIDVal.Caption()); }

bool InvCountingControls::IsFinal() const { return !Trim(txtCode.Text()).empty(); }

}  // namespace koru
