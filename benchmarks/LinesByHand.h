#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/Limits.h"
#include "platform/controls/Grid.h"

namespace koru::bench {

/// All fields of all rows of a query, each copied into a string.
[[nodiscard]] std::vector<std::string> CopyTexts(const PlainConnection& connection, const std::string& sql);

/// A line of a counting as numbers, ready for binding.
struct ReadyLine {
  std::string barcode;
  int unit = 0;
  double values[7] = {};  ///< four counts, book stock, difference, rate
  bool has[7] = {};
};
[[nodiscard]] std::vector<ReadyLine> ReadyLines(const Grid& lines);

/// Replaces the lines of the counting in one transaction with one prepared insert.
void SaveByHand(const PlainConnection& connection, int counting, const std::vector<ReadyLine>& lines);

/// Replaces the lines of the counting, assigns the next number and writes its dispatch and its receipt, in
/// one transaction with three prepared inserts.
void RegisterByHand(const PlainConnection& connection, int counting, const std::vector<ReadyLine>& lines);

/// The sums of three columns of amounts, read from their texts.
[[nodiscard]] double SumAmounts(const Grid& lines);

}  // namespace koru::bench
