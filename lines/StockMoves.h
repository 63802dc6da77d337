#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/SqlText.h"
#include "services/dteInvCounting.h"

namespace koru {

/// A registered document with a good, and what it did to the book stock of the good.
struct StockMove {
  enum class Kind { Receipt, Dispatch };
  Kind kind = Kind::Receipt;
  std::string code;     ///< the number that the document got when it was registered
  std::string date;     ///< Solar Hijri
  double quantity = 0;  ///< negative for a dispatch; the sum of the document's lines with the good

  friend bool operator==(const StockMove&, const StockMove&) = default;
};

/// The latest documents of a good, each kind from the highest number down.
struct StockMoves {
  std::vector<StockMove> receipts;
  std::vector<StockMove> dispatches;
};

/// Reads the documents that make up the book stock of a good (DocumentCondition), the latest first. A
/// document counts from its registration, and the database keeps no time of it; its number does follow the
/// order of registration.
class StockMovesReader {
 public:
  /// At most this number of lines of documents is read for each kind. A document that may be cut off by it is
  /// left out.
  static constexpr std::size_t kMaxLinesOfDocuments = 40;

  /// `data` must outlive the reader. The header is read here.
  StockMovesReader(dteInvCounting& data, const InvCountingControls& controls, std::int32_t invID);

  /// `barcode` is written into the statements as it is. Both travel together. Throws DatabaseError.
  [[nodiscard]] StockMoves Latest(const std::string& barcode);

 private:
  dteInvCounting& data_;
  SqlText documents_;  ///< DocumentCondition
};

/// Documents that are shown for a difference, the latest date first.
struct MoveExplanation {
  std::vector<StockMove> documents;
  bool isWhole = false;  ///< their sum is the difference
};

/// The fewest of the latest receipts and dispatches whose sum is `difference`, to 6 decimals. Where there are
/// none, because a document was changed or deleted, or the store or the dates of the header are others, the
/// latest few of each kind.
[[nodiscard]] MoveExplanation ExplainMove(double difference, const StockMoves& latest);

}  // namespace koru
