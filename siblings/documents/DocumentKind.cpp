#include "siblings/documents/DocumentKind.h"

namespace koru {

const DocumentKind& ReceiptKind() {
  static const DocumentKind kind{.table = "tblInventoryReceipt",
                                 .lineTable = "tblInventoryReceiptDetail",
                                 .lineKey = "ReceiptID",
                                 .name = "رسيد انبار",
                                 .objectName = "comInvReceipt"};
  return kind;
}

const DocumentKind& DispatchKind() {
  static const DocumentKind kind{.table = "tblInventoryDispatch",
                                 .lineTable = "tblInventoryDispatchDetail",
                                 .lineKey = "DispatchID",
                                 .name = "خروج انبار",
                                 .objectName = "comInvExit"};
  return kind;
}

std::string RegistrationQuestion(const DocumentKind& kind) {
  return "آيا از ثبت نهايي " + kind.name + " اطمينان داريد؟";
}

}  // namespace koru
