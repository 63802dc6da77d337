#include "lines/AcceptedCounts.h"

#include <algorithm>
#include <string>
#include <vector>

#include "lines/LineColumns.h"
#include "lines/LineState.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr const char* kTitle = "قبول شمارش‌هاي يكسان";
constexpr const char* kCountedOnce = " سطر فقط يك بار شمرده شده است. آن يك شمارش براي آن ها قبول شود؟";
constexpr const char* kOtherFigure = " سطر شمارش مورد قبول ديگري دارد. شمارش يكسان به جاي آن نوشته شود؟";

}  // namespace

/// The lines that have a figure to accept.
struct AcceptedCounts::Plan {
  struct Figure {
    int row = 0;
    std::string text;
    bool isOnly = false;    ///< the only count of its line
    bool replaces = false;  ///< another accepted count
  };
  std::vector<Figure> figures;
  Result result;  ///< what is known before a figure is entered
};

AcceptedCounts::Plan AcceptedCounts::MakePlan() const {
  Plan plan;
  for (int row = 1; row < flexDetail_.Rows(); ++row) {
    if (flexDetail_.TextMatrix(row, LineColumn::Barcode).empty()) continue;
    const GivenCounts counts = CountsOf(flexDetail_, row);
    if (counts.number == 0) {
      ++plan.result.uncounted;
      continue;
    }
    if (!counts.agree) {
      ++plan.result.disagree;
      continue;
    }
    const std::string_view accepted = Trim(flexDetail_.TextMatrix(row, LineColumn::AcceptedCounting));
    if (!accepted.empty() && Val(accepted) == Val(counts.first)) {
      ++plan.result.alreadySame;
      continue;
    }
    plan.figures.push_back({row, std::string(counts.first), counts.number == 1, !accepted.empty()});
  }
  return plan;
}

AcceptedCounts::Result AcceptedCounts::Run() {
  flexDetail_.UserLeave();  // an empty row is removed now rather than while rows are filled
  Plan plan = MakePlan();
  Result& result = plan.result;
  const auto leave = [&plan](const auto& isLeft) {
    return static_cast<int>(std::erase_if(plan.figures, isLeft));
  };
  const auto isOnly = [](const Plan::Figure& figure) { return figure.isOnly; };
  const auto replaces = [](const Plan::Figure& figure) { return figure.replaces; };
  const auto count = [&plan](const auto& is) {
    return static_cast<int>(std::count_if(plan.figures.begin(), plan.figures.end(), is));
  };
  if (!Asks(count(isOnly), kCountedOnce)) result.countedOnce = leave(isOnly);
  if (!Asks(count(replaces), kOtherFigure)) result.otherFigure = leave(replaces);
  Fill(plan, result);
  return result;
}

/// True when the user says yes; nothing is asked about no lines.
bool AcceptedCounts::Asks(int lines, const char* question) const {
  return lines > 0 && messages_.AskQuestion(kTitle, std::to_string(lines) + question) == kAnswerYes;
}

void AcceptedCounts::Fill(const Plan& plan, Result& result) {
  if (plan.figures.empty()) return;
  const BatchEdit batch(flexDetail_);
  const GridRedrawOff redrawOff(flexDetail_);
  const int row = flexDetail_.Row();
  const int col = flexDetail_.Col();
  for (const Plan::Figure& figure : plan.figures) {
    const bool isStored = flexDetail_.UserEdit(figure.row, LineColumn::AcceptedCounting, figure.text);
    ++(isStored ? result.filled : result.refused);
  }
  flexDetail_.SetCurrent(row, col);
}

}  // namespace koru
