#include "counting/CommandSentences.h"

#include "lines/LineColumns.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::string LineCount(const InvCountingControls& controls) {
  return std::to_string(controls.flexDetail.Rows() - 1);
}

int LinesWithoutAccepted(const Grid& lines) {
  int count = 0;
  for (int row = 1; row < lines.Rows(); ++row) {
    if (Trim(lines.TextMatrix(row, LineColumn::AcceptedCounting)).empty()) ++count;
  }
  return count;
}

}  // namespace

std::string SavedSentence(const InvCountingControls& controls) {
  return "ثبت موقت شد: شماره رايانه اي " + controls.lblIDVal.Caption() + "، " + LineCount(controls) + " سطر.";
}

std::string RegisteredSentence(const InvCountingControls& controls,
                               const AdjustmentDocuments::Written& documents) {
  std::string sentence =
      "ثبت نهايي شد: شماره تاييد شده " + controls.txtCode.Text() + "، " + LineCount(controls) + " سطر";
  if (documents.dispatch) sentence += "؛ برگ خروج كسري " + std::to_string(*documents.dispatch);
  if (documents.receipt) sentence += "؛ برگ رسيد اضافي " + std::to_string(*documents.receipt);
  if (!documents.dispatch && !documents.receipt) sentence += "؛ مغايرتي نبود و برگي ساخته نشد";
  // They are registered as if nothing had been found of these goods.
  const int unaccepted = LinesWithoutAccepted(controls.flexDetail);
  if (unaccepted > 0) sentence += "؛ " + std::to_string(unaccepted) + " سطر مقدار مورد قبول نداشت";
  return sentence + ".";
}

std::string ReturnedSentence(const std::string& code) {
  return "شمارش شماره " + code + " به حالت موقت برگشت و برگ هاي آن حذف شد.";
}

std::string DeletedSentence(const std::string& id) { return "شمارش با شماره رايانه اي " + id + " حذف شد."; }

std::string CalculatedSentence(const InvCountingControls& controls) {
  return "موجودي دفتري و نرخ " + LineCount(controls) + " سطر محاسبه شد.";
}

std::string WorkbookSentence(const std::string& file) { return "پروندة اكسل ساخته شد: " + LeftToRight(file); }

}  // namespace koru
