#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/SqlText.h"
#include "services/dteInvCounting.h"

namespace koru {

/// What the database holds on a good for its line.
struct BookFigures {
  struct Unit {
    std::string name;
    std::string id;
  };
  std::optional<Unit> unit;         ///< no value: there is no base unit, and a line keeps its own
  std::optional<std::string> rate;  ///< no value: no document has one, and a line keeps its own
  std::optional<double> bookStock;  ///< no value: it was not read, because a statement failed
};

/// Reads units, rates and book stocks of goods from the documents of DocumentCondition. The header is read
/// when the reader is made. Barcodes are written into the statements as they are, and the caller trims them.
class BookFiguresReader {
 public:
  /// `invID` is the store; -1 (none chosen) has no documents. `data` must outlive the reader.
  BookFiguresReader(dteInvCounting& data, const InvCountingControls& controls, std::int32_t invID);

  /// Called before each group of goods with the index of its first; false ends the reading.
  using GoOn = std::function<bool(std::size_t first)>;

  /// Appends the figures of goods, in order, to `figures`:
  /// - the base unit of the good, or else the base unit with the lowest key;
  /// - the rate of the latest dispatch with a value, or else of the latest receipt with one;
  /// - the book stock: received minus dispatched, each sum taken as its 15 digits and the difference rounded
  ///   to 6 decimals, so that 0.1 + 0.2 - 0.3 is 0.
  /// Returns false when `goOn` has ended the reading. Throws DatabaseError; `figures` then ends with the good
  /// of the failing statement, which lacks what comes after it.
  ///
  /// Where StatementsPerTrip() is 1, the statements are sent good by good in this order, and the second of a
  /// unit or a rate directly after the first. Elsewhere a group of goods takes two round trips: what every
  /// good asks, then what only some ask.
  bool Read(const std::vector<std::string>& barcodes, const GoOn& goOn, std::vector<BookFigures>& figures);

  /// The book stock alone. Throws DatabaseError.
  [[nodiscard]] double BookStock(const std::string& barcode);

 private:
  /// What is asked of a good, in this order.
  enum class Figure { Unit, Rate, Received, Dispatched };
  static constexpr std::size_t kFigures = 4;

  struct Question {
    std::size_t good = 0;
    Figure figure = Figure::Unit;
    bool isSecond = false;  ///< asked because the first statement for the figure found nothing
  };
  /// Goods that are asked for together.
  struct Group {
    std::span<const std::string> barcodes;
    std::span<BookFigures> figures;
    std::vector<double> received;
    Question failed;  ///< whose statement failed
  };

  /// Asks first questions, as many in a trip as the database takes.
  void AskAll(Group& group, std::span<const Question> questions);
  /// Asks these questions together, then the second ones that follow from the answers.
  void Ask(Group& group, std::span<const Question> questions);
  [[nodiscard]] SqlText StatementOf(const Question& question, std::string_view barcode) const;
  /// False when nothing was found.
  static bool Take(Group& group, const Question& question, const Recordset& found);

  dteInvCounting& data_;
  SqlText documents_;  ///< DocumentCondition
};

}  // namespace koru
