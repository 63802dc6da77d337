#pragma once

#include <string>

#include "counting/FiguresAge.h"
#include "lines/MovedStock.h"
#include "services/SharedState.h"

namespace koru {

/// The command mnuMovedStock: finds the lines whose stock has moved, shows them with their documents, and
/// gives the lines that the user chooses their new figures.
class StockCheck {
 public:
  struct Outcome {
    bool isCurrent = false;  ///< every line now shows the book stock of the selected store
    std::string sentence;    ///< what was done; empty: nothing
  };

  /// All must outlive the object.
  StockCheck(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
             SystemQuantity& quantity, FiguresAge& age);

  /// Figures can be taken only while the counting is entered. Throws DatabaseError.
  Outcome Run(bool isBeingEntered);

 private:
  void ReportNone() const;

  InvCountingControls& controls_;
  SharedState& shared_;
  FiguresAge& age_;
  MovedStock moved_;
};

}  // namespace koru
