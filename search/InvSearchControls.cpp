#include "search/InvSearchControls.h"

namespace koru {

InvSearchControls::InvSearchControls(Form& form) : form_(form) {
  chkTemp.SetCaption("موقت");
  chkFinal.SetCaption("نهايي");
  chkAllInvs.SetCaption("با انبارهاي زيرمجموعه");
  cmdSearch.SetCaption("جستجو");
  cmdNew.SetCaption("جستجوي جديد");
  cmdExit.SetCaption("خروج");
}

}  // namespace koru
