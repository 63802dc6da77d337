#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/sql/Recordset.h"
#include "platform/sql/SqlText.h"
#include "platform/text/Fingerprint.h"

namespace koru {

class Grid;

/// One record of tblInventoryCountingDetail, as a save writes it and as it is read back. A quantity that is
/// absent is not the same as a quantity of 0.
struct StoredLine {
  std::string barcode;  ///< without blanks around it
  int rowNumber = 0;    ///< the line's row in the grid, from 1; rows that are not saved leave gaps
  std::optional<double> scaleID;
  std::optional<double> firstCounting;
  std::optional<double> secondCounting;
  std::optional<double> thirdCounting;
  std::optional<double> acceptedCounting;
  std::optional<double> systemCounting;  ///< the book stock
  std::optional<double> contradiction;   ///< above 0 a surplus, below 0 a shortage
  std::optional<double> baseValue;
};

/// The line that a save writes for a row of the counting's grid.
[[nodiscard]] StoredLine LineOfGrid(const Grid& lines, int row);

/// Reads lines out of a recordset that has all columns of tblInventoryCountingDetail.
class StoredLineReader {
 public:
  /// Throws DatabaseError when a column is missing.
  explicit StoredLineReader(const Recordset& records);

  /// The record with the zero-based index `record`.
  [[nodiscard]] StoredLine Line(const Recordset& records, std::size_t record) const;

 private:
  std::size_t barcode_;
  std::size_t rowNumber_;
  std::size_t scaleID_;
  std::size_t firstCounting_;
  std::size_t secondCounting_;
  std::size_t thirdCounting_;
  std::size_t acceptedCounting_;
  std::size_t systemCounting_;
  std::size_t contradiction_;
  std::size_t baseValue_;
};

/// The statement that inserts the line.
[[nodiscard]] SqlText LineInsert(const StoredLine& line, double countingID);

/// Distinguishes stored lines of a counting: equal lines in equal order have equal digests, and different
/// ones practically never have.
class LinesDigest {
 public:
  LinesDigest() = default;
  /// The digest whose Count and Hash these are.
  LinesDigest(std::size_t count, std::uint64_t hash) : hash_(hash), count_(count) {}

  /// Adds the next line by the statement that inserts it, so that numbers compare as they are stored.
  void Add(const SqlText& insert);

  [[nodiscard]] std::size_t Count() const { return count_; }
  /// With Count, all of the digest: the same in every build.
  [[nodiscard]] std::uint64_t Hash() const { return hash_; }
  friend bool operator==(const LinesDigest&, const LinesDigest&) = default;

 private:
  std::uint64_t hash_ = kEmptyFingerprint;
  std::size_t count_ = 0;
};

}  // namespace koru
