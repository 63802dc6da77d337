#include "counting/controls/InvCountingControls.h"

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {

InvCountingControls::InvCountingControls(Form& owner) : form(owner) {
  cmdNew.SetCaption("جديد");
  cmdEdit.SetCaption("اصلاح");
  cmdDelete.SetCaption("حذف");
  cmdSearch.SetCaption("جستجو");
  cmdGoods.SetCaption("كالاها");
  cmdCalc.SetCaption("محاسبه");
  cmdDeleteAll.SetCaption("حذف همه");
  cmdReadLines.SetCaption("خواندن سطرهاي ذخيره شده");
  cmdReadLines.SetVisible(false);
  cmdAddScanned.SetCaption("افزودن اين كالا");
  cmdAddScanned.SetVisible(false);
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
  mnuUndo.SetCaption("برگرداندن آخرين عدد");
  mnuImport.SetCaption("آوردن شمارش از پرونده...");
  mnuRedo.SetCaption("انجام دوباره");
  mnuAcceptEqual.SetCaption("قبول شمارش‌هاي يكسان");
  for (MenuItem* const ofEntry : {&mnuUndo, &mnuRedo, &mnuAcceptEqual}) ofEntry->SetEnabled(false);
  mnuMovedStock.SetCaption("بررسي تغيير موجودي");
  cmdStop.SetCaption("لغو (Esc)");
  cmdStop.SetVisible(false);
  // No mode enables cmdPrint: users print the report that cmdView shows.
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
