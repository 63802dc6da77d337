#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/BookFigures.h"
#include "lines/CountingLines.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdGoods: adds a line for every good that the goods search finds and that has no line yet. A
/// new line is one that was not counted: its whole book stock is a shortage.
class AddGoods {
 public:
  /// Shows the goods search modally. Returns the condition on tblGood that it leaves, empty when the user
  /// searched nothing.
  using GoodSearch = std::function<const SqlText&()>;

  /// All must outlive the object.
  AddGoods(InvCountingControls& controls, SharedState& shared, CountingLines& lines);

  /// Refused with a message while no store is chosen; asks first when the counting has lines. A counting
  /// holds up to kMaxLines lines: further goods are left out, with a message. Returns the count of added
  /// lines, or nothing when no search was made. When the user cancels, no line is added and nothing returned.
  /// Throws DatabaseError; the goods whose figures were read by then are added.
  std::optional<int> Run(const GoodSearch& search);
  /// Adds the goods of a condition in the same way, without a question.
  std::optional<int> Add(const SqlText& condition);

 private:
  /// The goods to be added: records of the search's result, and their barcodes for the statements.
  struct NewGoods {
    std::vector<std::size_t> records;
    std::vector<std::string> barcodes;
    bool allFit = true;  ///< false when some goods are left out
  };

  [[nodiscard]] bool HasStore() const;
  [[nodiscard]] bool MayAdd();
  [[nodiscard]] NewGoods FindNew(const Recordset& found) const;
  /// False when the user has cancelled.
  bool ReadFigures(const NewGoods& goods, std::vector<BookFigures>& figures);
  void AddLines(const Recordset& found, const NewGoods& goods, const std::vector<BookFigures>& figures);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
};

}  // namespace koru
