#include "counting/EntrySentences.h"

#include <utility>

namespace koru {
namespace {

/// What of a step was left, after what was done; ends the sentence.
std::string LeftPart(const EntryHistory::Result& result) {
  std::string part;
  if (result.kept > 0)
    part += "؛ " + std::to_string(result.kept) + " خانه پس از آن تغيير كرده بود يا عدد را نپذيرفت";
  if (result.gone > 0) part += "؛ سطر " + std::to_string(result.gone) + " عدد ديگر حذف شده است";
  if (result.skipped > 0)
    part += "؛ " + std::to_string(result.skipped) + " گام رد شد، چون سطر آن حذف شده است";
  return part + ".";
}

}  // namespace

std::string UndoneSentence(const EntryHistory::Result& result) {
  if (result.figures == 0) return "عددي برنگشت" + LeftPart(result);
  return std::to_string(result.figures) + " عدد به حال پيشين برگشت" + LeftPart(result);
}

std::string RedoneSentence(const EntryHistory::Result& result) {
  if (result.figures == 0) return "عددي نوشته نشد" + LeftPart(result);
  return std::to_string(result.figures) + " عدد دوباره نوشته شد" + LeftPart(result);
}

std::string AcceptedSentence(const AcceptedCounts::Result& result, bool filtered) {
  std::string sentence = "شمارش " + std::to_string(result.filled) + " سطر قبول شد";
  if (result.alreadySame > 0) {
    sentence += "؛ " + std::to_string(result.alreadySame) + " سطر از پيش همان را داشت";
  }
  const std::string end = filtered ? ". سطرهاي پنهان هم بررسي شدند." : ".";
  if (result.Left() == 0) return sentence + end;
  const std::pair<int, const char*> reasons[] = {
      {result.uncounted, " بدون شمارش"},
      {result.countedOnce, " با يك شمارش"},
      {result.disagree, " با شمارش‌هاي ناهمخوان"},
      {result.otherFigure, " با شمارش مورد قبول ديگر"},
      {result.refused, " با عدد نپذيرفتني"}};
  std::string why;
  for (const auto& [lines, reason] : reasons) {
    if (lines > 0) why += (why.empty() ? "" : "، ") + std::to_string(lines) + reason;
  }
  return sentence + "؛ " + std::to_string(result.Left()) + " سطر ماند: " + why + end;
}

}  // namespace koru
