#include "siblings/documents/DocumentKind.h"

namespace koru {

const DocumentKind& ReceiptKind() {
  static const DocumentKind kind{"tblInventoryReceipt", "tblInventoryReceiptDetail", "ReceiptID",
                                 "رسيد انبار", "comInvReceipt"};
  return kind;
}

const DocumentKind& DispatchKind() {
  static const DocumentKind kind{"tblInventoryDispatch", "tblInventoryDispatchDetail", "DispatchID",
                                 "خروج انبار", "comInvExit"};
  return kind;
}

std::string RegistrationQuestion(const DocumentKind& kind) {
  return "آيا از ثبت نهايي " + kind.name + " اطمينان داريد؟";
}

}  // namespace koru
