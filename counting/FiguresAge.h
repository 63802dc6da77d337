#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/ports/HostServices.h"

namespace koru {

/// When the book stock on the lines was calculated, as far as this form knows: the database keeps no time of
/// it. The form shows it in lblFiguresAge while a counting is entered, since goods that were received or
/// dispatched later are registered as shortages and surpluses.
class FiguresAge {
 public:
  using Time = std::chrono::system_clock::time_point;

  /// Both must outlive the object.
  FiguresAge(InvCountingControls& controls, const Clock& clock) : controls_(controls), clock_(clock) {}

  [[nodiscard]] Time Now() const { return clock_.Now(); }
  /// The book stock of all lines is that of this time.
  void CalculatedAt(Time time) { calculated_ = time; }
  /// Lines were added with book stock of now: the age is that of the oldest line.
  void LinesAdded(int added);
  /// The lines are those of a stored counting or of a draft.
  void Forget() { calculated_.reset(); }

  /// How long ago it was, such as "3 hours ago"; empty when the time is not known.
  [[nodiscard]] std::string Ago() const;
  /// Shows it in lblFiguresAge; empties that when nothing is entered or there are no lines.
  void Show(bool isBeingEntered);

 private:
  InvCountingControls& controls_;
  const Clock& clock_;
  std::optional<Time> calculated_;
};

}  // namespace koru
