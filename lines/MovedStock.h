#pragma once

#include <optional>
#include <string>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/BookFigures.h"
#include "lines/CountingLines.h"
#include "lines/SystemQuantity.h"

namespace koru {

/// A line whose book stock is no longer the one that it shows.
struct MovedLine {
  int row = 0;
  std::string shownStock;  ///< what the line shows; empty when it was never calculated
  BookFigures figures;     ///< what Calculate would put into it; the book stock has a value

  /// The new book stock less the one that is shown.
  [[nodiscard]] double Difference() const;
};

/// Compares the book stock on the lines with the books, while the lines stay as they are: stock that moves
/// while goods are counted is found before it is registered as a shortage or a surplus.
class MovedStock {
 public:
  /// All must outlive the object.
  MovedStock(InvCountingControls& controls, CountingLines& lines, SystemQuantity& quantity);

  /// Calculates the book stock of every line anew, with the statements of Calculate, and returns the lines
  /// that show another one, in their order. No line changes. Nothing when the user cancels. Throws
  /// DatabaseError; pgbStatus then stays visible.
  [[nodiscard]] std::optional<std::vector<MovedLine>> Find();

  /// Gives these lines what Calculate would give them: unit, rate and book stock, and the differences and
  /// amounts that follow. Sums all lines. `moved` is what Find returned for the lines as they are.
  void Take(const std::vector<MovedLine>& moved);

 private:
  Grid& flexDetail_;
  CountingLines& lines_;
  SystemQuantity& quantity_;
};

}  // namespace koru
