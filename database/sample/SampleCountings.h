#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleDocuments.h"
#include "database/sample/SampleRows.h"
#include "database/sample/SampleStock.h"

namespace koru::sample {

/// What the counters entered for a line, each before the next.
struct CounterEntries {
  std::optional<double> first = std::nullopt;
  std::optional<double> second = std::nullopt;
  std::optional<double> third = std::nullopt;
};

struct CountingLine {
  std::string barcode;
  std::optional<int> unit;
  CounterEntries counts;
  std::optional<double> accepted;
  double books = 0;                  ///< book stock
  std::optional<double> difference;  ///< see Difference
  std::optional<double> rate;
};

/// The difference that is stored with a line: the accepted count (0 if there is none) less the book stock,
/// rounded to three decimals. Empty if it is 0.
[[nodiscard]] std::optional<double> Difference(const std::optional<double>& accepted, double books);

/// A counting's header and lines.
struct Counting {
  int id = 0;
  std::optional<std::string> manualCode;
  int store = 0;
  int creator = 0;
  Date day;
  std::optional<Period> period;
  std::array<std::optional<int>, 3> counters;
  std::optional<int> confirmer;
  std::optional<std::string> notes;
  std::vector<CountingLine> lines;
};

/// The documents that a final counting is linked to.
struct Adjustments {
  std::optional<int> receipt;
  std::optional<int> dispatch;
};

/// Writes countings and their adjustment documents.
class CountingBook {
 public:
  CountingBook(SqliteConnection& connection, DocumentBook& documents);

  /// Writes a temporary counting.
  void Write(const Counting& counting);
  /// Writes a final counting: it gets the next number, a dispatch for its shortages and a receipt for its
  /// surpluses. Neither document is registered.
  Adjustments WriteFinal(const Counting& counting);
  /// Links the counting to other documents, which need not exist.
  void Link(int id, const Adjustments& adjustments);

 private:
  std::optional<int> WriteAdjustment(const Counting& counting, DocumentKind kind);

  SqliteConnection& connection_;
  DocumentBook& documents_;
  RowWriter header_;
  RowWriter line_;
  RowWriter code_;
  RowWriter links_;
  int lastCode_ = 0;
};

}  // namespace koru::sample
