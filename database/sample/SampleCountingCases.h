#pragma once

#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleCountingLines.h"
#include "database/sample/SampleCountings.h"
#include "database/sample/SampleMovements.h"

namespace koru::sample {

/// The countings by their keys; docs/sample-data.md lists what each one shows.
class CountingCases {
 public:
  CountingCases(SqliteConnection& connection, DocumentBook& documents, Random& random,
                const std::vector<StoreGoods>& stores);

  /// Countings 1 to 5, final; to be written when the first year has been traded and before its books are
  /// carried over.
  void WriteFirstYear();
  /// Countings 6 and 7, final, and 8 to 17, temporary.
  void WriteSecondYear();

 private:
  Counting Of(int id, int store, Date day, int year);
  Counting Counted(int id, int store, Date day, int year, std::size_t lines, Finding finding);
  void WriteFinalWithLostDocuments();
  void WriteIncomplete();
  void WriteUnusualLines();
  void WriteUnderWay();
  void WriteReturns();
  [[nodiscard]] const std::vector<Good>& GoodsOf(int store) const;

  SqliteConnection& connection_;
  DocumentBook& documents_;
  Random& random_;
  const std::vector<StoreGoods>& stores_;
  CountingBook book_;
};

}  // namespace koru::sample
