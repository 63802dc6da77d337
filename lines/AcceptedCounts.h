#pragma once

#include "counting/controls/InvCountingControls.h"
#include "services/Messages.h"

namespace koru {

/// The command mnuAcceptEqual: enters the accepted count of every line whose counts agree, for the user.
///
/// Counts agree when at least two of the three are given and all given ones are the same number, as 12 and
/// 12.0 are. A line that was counted once is accepted only when the user says so, and another accepted count
/// is replaced only when the user says so; each is asked once for all lines, and only if there are such
/// lines.
class AcceptedCounts {
 public:
  /// Numbers of lines.
  struct Result {
    int filled = 0;       ///< have a new accepted count
    int alreadySame = 0;  ///< had the count that agrees as their accepted count
    int uncounted = 0;    ///< were left: no count is given
    int countedOnce = 0;  ///< were left: one count alone is given
    int disagree = 0;     ///< were left: the counts differ
    int otherFigure = 0;  ///< were left: another count is accepted
    int refused = 0;      ///< were left: the form refused the figure

    [[nodiscard]] int Left() const { return uncounted + countedOnce + disagree + otherFigure + refused; }
  };

  /// Both must outlive the object.
  AcceptedCounts(InvCountingControls& controls, const Messages& messages)
      : flexDetail_(controls.flexDetail), messages_(messages) {}

  /// Enters the counts in one BatchEdit: they are one step of the history, and the sums are calculated once.
  /// The current cell stays. Lines without a barcode are no goods and left alone.
  Result Run();

 private:
  struct Plan;
  [[nodiscard]] Plan MakePlan() const;
  [[nodiscard]] bool Asks(int lines, const char* question) const;
  void Fill(const Plan& plan, Result& result);

  Grid& flexDetail_;
  const Messages& messages_;
};

}  // namespace koru
