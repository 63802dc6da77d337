#include "search/GoodSearchControls.h"

namespace koru {

GoodSearchControls::GoodSearchControls(Form& form) : form_(form) {
  lblBarCode.SetCaption("باركد");
  lblTitle.SetCaption("نام كالا");
  lblCode.SetCaption("كد كالا");
  lblMaxPrice.SetCaption("تا قيمت");
  lblLocation.SetCaption("محل");
  optPrecise.SetCaption("دقيق");
  optNonPrecise.SetCaption("غير دقيق");
  chkKnownDiscount.SetCaption("داراي تخفيف");
  chkUnKnownDiscount.SetCaption("بدون تخفيف");
  chkAllBranches.SetCaption("با زيرگروهها");
  chkAllLBranches.SetCaption("با محلهاي زيرمجموعه");
  chkEmptyAllConds.SetCaption("بدون شرطهاي ديگر");
  chkShowExistance.SetCaption("نمايش موجودي");
  chkShowRialExistance.SetCaption("نمايش موجودي ريالي");
  cmdGoodType.SetCaption("نوع كالا");
  cmdSearch.SetCaption("جستجو");
  cmdNewSearch.SetCaption("جستجوي جديد");
  mnuHelp.SetCaption("F1                            راهنمايي");
  mnuSearch.SetCaption("Ctrl+S                          جستجو");
  mnuNewSearch.SetCaption("Ctrl+N               جستجوي جديد");
  mnuExit.SetCaption("Ctrl+Z                            خروج");
}

}  // namespace koru
