#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace koru::test {

/// A decimal number in millionths: wide enough for every product in a scenario, and exact.
using Decimal = std::int64_t;
inline constexpr Decimal kOne = 1'000'000;

/// As the grid shows it: no trailing zeros, an empty text for nothing.
[[nodiscard]] std::string DecimalText(std::optional<Decimal> number);

/// One line of a counting, the numbers as decimals.
struct ModelLine {
  std::string barcode;
  int unit = -1;
  std::optional<Decimal> counts[3];
  std::optional<Decimal> accepted;
  std::optional<Decimal> system;
  std::optional<Decimal> shortage;
  std::optional<Decimal> surplus;
  std::optional<Decimal> rate;
  std::optional<Decimal> shortageAmount;
  std::optional<Decimal> surplusAmount;
  std::optional<Decimal> countedAmount;

  /// What an edit of the accepted count or the rate, or a calculation, does to the line.
  void Calculate();
  /// The texts of grid columns 5 to 16.
  [[nodiscard]] std::string Cells() const;
  /// The line as the database holds it, without its counting and row number; NULL as "NULL".
  [[nodiscard]] std::string Stored() const;
  /// The line as it is when it is read back.
  [[nodiscard]] ModelLine Reloaded() const;
};

struct ModelDocument {
  std::string lines;  ///< barcode, quantity and unit of each line, in the order of barcodes
  std::map<std::string, Decimal> quantities;
  bool registered = false;
};

struct ModelCounting {
  std::optional<int> code;
  std::map<int, ModelLine> lines;  ///< by row number
  std::optional<ModelDocument> dispatch;
  std::optional<ModelDocument> receipt;
};

/// What countings and their numbers must be after any scenario, in the plainest form.
class CountingModel {
 public:
  std::map<int, ModelCounting> countings;  ///< by key
  std::map<std::string, Decimal>
      registeredStock;  ///< what registered adjustment documents brought into the store

  /// The suite's own component gives a document its number: from now on it counts as book stock.
  void RegisterDocument(ModelDocument& document, bool isReceipt);

  [[nodiscard]] int NextCode() const;
  void Register(int id);
  /// False when one of the documents has been registered.
  bool Return(int id);
};

}  // namespace koru::test
