#include "counting/StoreOfFigures.h"

namespace koru {

bool StoreOfFigures::MayBeStored() const {
  if (!HasLines() || gmpInventory_.SelectedID() == store_) return true;
  const int answer = messages_.AskQuestion(
      "نياز به بازسازي",
      "انبار تغيير كرده است، ولي موجودي و مغايرت سطرها هنوز از انبار قبلي است. براي انبار جديد «محاسبه» را "
      "بزنيد.\n"
      "آيا با همين ارقام ذخيره شود؟");
  return answer != kAnswerNo;
}

}  // namespace koru
