#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::test {

/// A good's line, computed from the list of all documents.
struct PlainLine {
  std::string barcode;
  std::string code;
  std::string name;
  std::string unitName;
  std::string unit;
  std::string rate;  ///< empty: no document has one
  double books = 0;
};

/// The statements of a calculation, translated by hand and run one by one with nothing kept in between: store
/// 1 with its children, the year up to 2026-03-20.
class PlainStock {
 public:
  explicit PlainStock(const std::string& file)
      : connection_(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0)) {}

  /// Unit, rate and book stock of a good.
  [[nodiscard]] PlainLine LineOf(const std::string& barcode);
  /// A line for every good, in the order in which the goods are listed.
  [[nodiscard]] std::vector<PlainLine> LinesOfAllGoods();

 private:
  [[nodiscard]] double Sum(const std::string& kind, const std::string& barcode);
  void FindRate(PlainLine& line);
  void FindUnit(PlainLine& line);

  SqliteConnection connection_;
};

}  // namespace koru::test
